#include "decoders/CRSORDE21.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr NoticeRoute kRoutes[] = {
    {'2', '1', '1', kAny, '4', kReject, Route::Refusal},
    {'2', '1', '2', kAny, '4', kReject, Route::Refusal},
    {kAny, kRefused, kAny, kAny, kNoEvent, U"", Route::Dropped},
};

// The words of an order that is past its acceptance.
bool IsPastAcceptance(const OrderRow& row) {
    return HasWord(row.Status, U"정") || HasWord(row.Status, U"체결") || HasWord(row.Status, U"취") ||
           IsWord(row.Status, kAcceptanceRefused);
}

// A parent that a confirmation closes which came before its acceptance.
const Word& ClosingWord(const OrderRow& parent, const Word& closed) {
    const int64_t filled = Figure(parent.FilledQty);
    return filled != 0 && filled != Figure(parent.OrderQty) ? kPartial : closed;
}

// A parent whose amendment or cancellation is confirmed, with `open` of it still to be filled. `waiting` is
// the word of one that was only being sent.
const Word& ParentWord(const OrderRow& parent, int64_t open, const Word& waiting) {
    const int64_t filled = Figure(parent.FilledQty);
    if (filled == 0 && IsWord(parent.Status, kBeingSent)) {
        return waiting;
    }
    if (filled > 0 && open >= 0) {
        return open > 0 ? kBeingFilled : kFillingComplete;
    }
    return kBlankWord;
}

}  // namespace

CRSORDE21::CRSORDE21(HWND hWnd) : AnsweredOrders(hWnd, Takes<&CRSORDE21::OnOrderPacket>) {}

int CRSORDE21::Init(const char* buffer) {
    CRTMPacketDecoder::Init(buffer);
    InitReader in(buffer);
    m_Tag = in.Tag();
    // The last reserved byte may be missing where no rows follow.
    OrderListInit init;
    FillBlank(init);
    const int size = std::min(in.Remain(), static_cast<int>(sizeof(init)));
    if (size < static_cast<int>(sizeof(init)) - 1 || !in.ReadBytes(&init, size)) {
        return 0;
    }
    const int count = ToLong(init.Repeat.Count);
    if (count < 0) {
        return 0;
    }
    Put(m_UserField, init.UserField);
    // Without rows those of an earlier inquiry stay.
    return count == 0 || TakeRows(in, count) ? 1 : 0;
}

int CRSORDE21::OnOrderPacket(const OrderPacket& notice) {
    if (m_Repeats.IsRepeated(notice) || !IsOurs(notice) ||
        std::strncmp(notice.UserField, m_UserField, sizeof(m_UserField)) != 0 || !IsRecord(notice)) {
        return 0;
    }
    return TakeNotice(notice, kRoutes);
}

void CRSORDE21::ApplyAcceptance(const OrderEvent& event) {
    OrderEntry* own = FindRow(event.Number);
    if (own == nullptr) {
        InsertRow(event, Stage::Accepted);
        ReduceParent(event);
    } else if (!IsPastAcceptance(own->Row)) {
        PutKindWord(*own, event);
    }
}

void CRSORDE21::ApplyRefusal(const OrderEvent& event) {
    OrderEntry* own = FindRow(event.Number);
    if (own == nullptr) {
        InsertRow(event, Stage::Accepted);
        return;
    }
    PutWord(own->Row.Status, kReject);
    Touch(*own);
}

// Whatever a notice does, its row takes its board.
bool CRSORDE21::ApplyEvent(const OrderEvent& event) {
    if (OrderEntry* own = FindRow(event.Number)) {
        own->Row.BoardFlag = event.Columns.BoardFlag;
        Put(own->Row.BoardName, event.Columns.BoardName);
    }
    return AnsweredOrders::ApplyEvent(event);
}

// A confirmation before its acceptance: the parent closes at once, the event waits.
bool CRSORDE21::ApplyWithoutRow(const OrderEvent& event) {
    if (event.EventCode != '2' && event.EventCode != '3') {
        return false;
    }
    const bool amended = event.EventCode == '2';
    const bool hasParent = FindRow(event.ParentNumber) != nullptr;
    if (amended) {
        InsertRow(event, Stage::Confirmed);
    }
    OrderEntry* parent = hasParent ? FindRow(event.ParentNumber) : nullptr;
    if (parent == nullptr) {
        return false;
    }
    OrderRow& row = parent->Row;
    if (amended) {
        PutOpenOrClear(row.UnfilledQty, Figure(row.UnfilledQty) - event.Quantity);
    } else {
        Put(row.UnfilledQty, int64_t{0});
    }
    PutWord(row.Status, ClosingWord(row, amended ? kAmended : kWithdrawn));
    Touch(*parent);
    if (!amended) {
        SendRows(kUpdateRows, m_Rows.PlaceOf(parent), kChangedRows);
    }
    return false;
}

void CRSORDE21::Fill(OrderEntry& own, const OrderEvent& event) {
    OrderRow& row = own.Row;
    const int64_t filled = Figure(row.FilledQty) + event.Quantity;
    const int64_t open = Figure(row.UnfilledQty) - event.Quantity;
    Put(row.FilledQty, filled);
    Put(row.FillPrice, event.Columns.OrderPrice);
    Put(row.UnfilledQty, std::max(open, int64_t{0}));
    PutWord(row.Status, FillWord(filled, open));
    LimitFilled(row, filled);
    Touch(own);
}

void CRSORDE21::ConfirmAmendment(OrderEntry& own, const OrderEvent& event) {
    OrderEntry* parent = FindRow(event.ParentNumber);
    if (parent == nullptr || HasWord(own.Row.Status, kAmendConfirmed) ||
        HasWord(own.Row.Status, kCancelConfirmed)) {
        return;
    }
    Put(own.Row.UnfilledQty, event.Quantity);
    PutWord(parent->Row.Status, ParentWord(parent->Row, Figure(parent->Row.UnfilledQty), kAmendUnconfirmed));
    PutWord(own.Row.Status, kOpen);
    Touch(*parent);
    Touch(own);
}

void CRSORDE21::ConfirmCancellation(OrderEntry& own, const OrderEvent& event) {
    OrderEntry* parent = FindRow(event.ParentNumber);
    if (parent == nullptr || HasWord(own.Row.Status, kCancelConfirmed)) {
        return;
    }
    PutWord(parent->Row.Status, ParentWord(parent->Row, Figure(own.Row.UnfilledQty), kCancelUnconfirmed));
    PutWord(own.Row.Status, kCancelConfirmed);
    Touch(*parent);
    Touch(own);
}

void CRSORDE21::Close(OrderEntry& own) {
    PutWord(own.Row.Status, kCancelConfirmed);
    ClearFigure(own.Row.UnfilledQty);
    Touch(own);
}
