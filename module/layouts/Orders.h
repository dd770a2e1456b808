// What the three order maps have in common: the row, and the message to the view.
//
// Display buffer:  OrderMessage, then rows in list order, top first.
#ifndef TICKMUX_MODULE_LAYOUTS_ORDERS_H
#define TICKMUX_MODULE_LAYOUTS_ORDERS_H

#include <cstddef>

#include "module/wire/shapes.h"

inline constexpr char kSide1Row = '1';  // OrderRow::SideFlag
inline constexpr char kSide2Row = '0';

inline constexpr char kBoardTN = '1';  // OrderRow::BoardFlag
inline constexpr char kOtherBoard = '0';

// One order. The same layout stands in the Init text, in the decoder and in the message. Figures are
// right-aligned unless told otherwise.
struct OrderRow {
    char Time[6];
    char DisplayText[12];
    char Code[12];      // left-aligned
    char SideColor[2];  // "2 " for side 1, "4 " for side 2, else blank
    char SideFlag;      // kSide1Row, kSide2Row, else the side's char
    char BoardFlag;     // kBoardTN, kOtherBoard
    char BoardName[5];
    char OrderPrice[15];  // nine digits as they came, left-aligned
    char OrderQty[15];
    char FillPrice[15];  // of the last fill, as OrderPrice; in the filtered list the average, right-aligned
    char FilledQty[15];
    char UnfilledQty[15];
    char UserId[20];
    char Status[20];  // left-aligned; Korean words in code page 949
    char OrderNo[7];
    char ChannelMark;  // filtered list only, as ShownMark; else blank
    char Reserved[8];
    char ShownMark;  // the decoder's own; blank in the view's copy
};
static_assert(sizeof(OrderRow) == 171 && alignof(OrderRow) == 1);
static_assert(offsetof(OrderRow, OrderPrice) == 39 && offsetof(OrderRow, UserId) == 114 &&
              offsetof(OrderRow, OrderNo) == 154 && offsetof(OrderRow, ShownMark) == 170);

template <class Visitor>
void Describe(const OrderRow& row, Visitor&& visit) {
    visit("Time", row.Time);
    visit("DisplayText", row.DisplayText);
    visit("Code", row.Code);
    visit("SideColor", row.SideColor);
    visit("SideFlag", row.SideFlag);
    visit("BoardFlag", row.BoardFlag);
    visit("BoardName", row.BoardName);
    visit("OrderPrice", row.OrderPrice);
    visit("OrderQty", row.OrderQty);
    visit("FillPrice", row.FillPrice);
    visit("FilledQty", row.FilledQty);
    visit("UnfilledQty", row.UnfilledQty);
    visit("UserId", row.UserId);
    visit("Status", row.Status);
    visit("OrderNo", row.OrderNo);
    visit("ChannelMark", row.ChannelMark);
    visit("ShownMark", row.ShownMark);
}

inline constexpr char kUpdateRows = 'U';  // OrderControl::Operation
inline constexpr char kDeleteRow = 'D';

inline constexpr char kAllRows = '0';  // OrderControl::Action
inline constexpr char kNewRows = '2';
inline constexpr char kChangedRows = '3';

inline constexpr int kNoSingleRow = -1;  // OrderControl::Index

// Stands in front of the rows, in a row's place.
struct OrderControl {
    char Operation;
    char Index[4];  // of one row, as the view counts them; kNoSingleRow: none is meant
    char Action;
    char Reserved[165];
};
static_assert(sizeof(OrderControl) == sizeof(OrderRow));

template <class Visitor>
void Describe(const OrderControl& control, Visitor&& visit) {
    visit("Operation", control.Operation);
    visit("Index", control.Index);
    visit("Action", control.Action);
}

// Repeat counts the control record as a row.
struct OrderMessage {
    RequestTag Tag;
    RepeatHead Repeat;
    OrderControl Control;
};
static_assert(sizeof(OrderMessage) == 197 && offsetof(OrderMessage, Control) == 26);

template <class Visitor>
void Describe(const OrderMessage& message, Visitor&& visit) {
    visit("Repeat", message.Repeat);
    visit("Control", message.Control);
}

#endif
