// Interest board: one interest group, a row each stock, with the user's alarms.
//
// Init text:       request tag, InterestInit, then 1 to 200 InterestRows and nothing behind them.
// Display buffer:  PlainRows, then the rows that the batch has changed, in board order.
#ifndef TICKMUX_MODULE_LAYOUTS_RSITST01_H
#define TICKMUX_MODULE_LAYOUTS_RSITST01_H

#include <cstddef>

#include "module/wire/shapes.h"

struct InterestInit {
    char Group[3];  // the group's number
    RepeatHead Repeat;
};
static_assert(sizeof(InterestInit) == 27 && alignof(InterestInit) == 1);

template <class Visitor>
void Describe(const InterestInit& init, Visitor&& visit) {
    visit("Group", init.Group);
    visit("Repeat", init.Repeat);
}

// InterestRow::Alarm; with any other char the row has no alarm.
inline constexpr char kAlarmArmed = '1';
inline constexpr char kAlarmSounds = '2';
inline constexpr char kAlarmSilent = '3';  // the condition holds, the user wants no sound

struct InterestRow {
    char Alarm;
    char Code[10];       // of board 1; the row's key
    char PriceColor[2];  // by the sign of the trade, as the next two
    char Price[12];
    char Sign;
    char ChangeColor[2];
    char Change[9];
    char RateColor[2];
    char Rate[9];        // per cent, two decimals
    char Best2Color[2];  // against BasePrice, as all colours below
    char Best2Price[15];
    char Best1Color[2];
    char Best1Price[15];
    char Side2Qty[15];
    char Side1Qty[15];
    char TotalVolume[15];
    char Reserved1[2];   // the inquiry's
    char BasePrice[15];  // the inquiry's
    char HighColor[2];
    char High[15];
    char LowColor[2];
    char Low[15];
};
static_assert(sizeof(InterestRow) == 178 && alignof(InterestRow) == 1);
static_assert(offsetof(InterestRow, Rate) == 39 && offsetof(InterestRow, Side2Qty) == 82 &&
              offsetof(InterestRow, BasePrice) == 129 && offsetof(InterestRow, Low) == 163);

template <class Visitor>
void Describe(const InterestRow& row, Visitor&& visit) {
    visit("Alarm", row.Alarm);
    visit("Code", row.Code);
    visit("PriceColor", row.PriceColor);
    visit("Price", row.Price);
    visit("Sign", row.Sign);
    visit("ChangeColor", row.ChangeColor);
    visit("Change", row.Change);
    visit("RateColor", row.RateColor);
    visit("Rate", row.Rate);
    visit("Best2Color", row.Best2Color);
    visit("Best2Price", row.Best2Price);
    visit("Best1Color", row.Best1Color);
    visit("Best1Price", row.Best1Price);
    visit("Side2Qty", row.Side2Qty);
    visit("Side1Qty", row.Side1Qty);
    visit("TotalVolume", row.TotalVolume);
    visit("Reserved1", row.Reserved1);
    visit("BasePrice", row.BasePrice);
    visit("HighColor", row.HighColor);
    visit("High", row.High);
    visit("LowColor", row.LowColor);
    visit("Low", row.Low);
}

#endif
