#include "module/decoders/orders/CRSORDE21.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

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

CRSORDE21::CRSORDE21(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRSORDE21::OnOrderPacket>) {}

int CRSORDE21::OnInit(InitReader& in) {
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
    if (count == 0) {
        return 1;  // the rows of an earlier inquiry stay
    }
    ClearOrders();
    return m_Rows.ReadRows(in, count) ? 1 : 0;
}

// ------------------------------------------------------------------ notices

int CRSORDE21::OnOrderPacket(const OrderPacket& notice) {
    if (m_LastPacket.IsRepeatedBy(notice) || !m_UserId.IsOf(notice) ||
        std::strncmp(notice.UserField, m_UserField, sizeof(m_UserField)) != 0 || !IsRecord(notice)) {
        return 0;
    }
    const OrderEvent event = BuildEvent(notice, AnswerRoutes(), DivisorOfBoard(notice));
    switch (event.Way) {
        case Route::Acceptance:
            ApplyAcceptance(event);
            DrainPending(event.OrderNo);
            break;
        case Route::Refusal:
            ApplyRefusal(event);
            break;
        case Route::Apply:
            if (!ApplyEvent(event)) {
                m_Pending.Park(event);
            }
            break;
        case Route::Sending:
        case Route::Dropped:
            break;
    }
    PostListChanged();
    return 1;
}

void CRSORDE21::ApplyAcceptance(const OrderEvent& event) {
    OrderEntry* own = m_Rows.FindRow(event.OrderNo);
    if (own == nullptr) {
        InsertRow(event, RowMode::Accepted);
        ReduceParent(m_Rows, event);
    } else if (!IsPastAcceptance(own->Row)) {
        SetStatus(*own, KindWord(event.EventCode));
    }
}

void CRSORDE21::ApplyRefusal(const OrderEvent& event) {
    if (OrderEntry* own = m_Rows.FindRow(event.OrderNo)) {
        SetStatus(*own, kReject);
    } else {
        InsertRow(event, RowMode::Accepted);
    }
}

bool CRSORDE21::ApplyEvent(const OrderEvent& event) {
    OrderEntry* own = m_Rows.FindRow(event.OrderNo);
    if (own == nullptr) {
        ApplyWithoutRow(event);
        return false;
    }
    OrderEntry* parent = m_Rows.FindRow(event.ParentOrderNo);
    // Whatever a notice does, its row takes its board.
    own->Row.BoardFlag = event.Columns.BoardFlag;
    Put(own->Row.BoardName, event.Columns.BoardName);
    switch (event.EventCode) {
        case EventCode::Fill:
            ApplyFill(*own, event);
            break;
        case EventCode::Amendment:
            if (parent != nullptr && !HasWord(own->Row.Status, kAmendConfirmed) &&
                !HasWord(own->Row.Status, kCancelConfirmed)) {
                Put(own->Row.UnfilledQty, event.Quantity);
                const int64_t open = Figure(parent->Row.UnfilledQty);
                SetStatus(*parent, ParentWord(parent->Row, open, kAmendUnconfirmed));
                SetStatus(*own, kOpen);
            }
            break;
        case EventCode::Cancellation:
            if (parent != nullptr && !HasWord(own->Row.Status, kCancelConfirmed)) {
                const int64_t open = Figure(own->Row.UnfilledQty);
                SetStatus(*parent, ParentWord(parent->Row, open, kCancelUnconfirmed));
                SetStatus(*own, kCancelConfirmed);
            }
            break;
        case EventCode::Closing:
            SetStatus(*own, kCancelConfirmed);
            ClearFigure(own->Row.UnfilledQty);
            break;
        default:
            break;
    }
    return true;
}

// A confirmation before its acceptance: the parent closes at once.
void CRSORDE21::ApplyWithoutRow(const OrderEvent& event) {
    OrderEntry* parent = m_Rows.FindRow(event.ParentOrderNo);
    switch (event.EventCode) {
        case EventCode::Amendment: {
            const bool hadParent = parent != nullptr;  // the new row may be named as its own
            InsertRow(event, RowMode::Confirmed);
            parent = hadParent ? m_Rows.FindRow(event.ParentOrderNo) : nullptr;
            if (parent != nullptr) {
                ReduceOpen(parent->Row.UnfilledQty, event.Quantity);
                SetStatus(*parent, ClosingWord(parent->Row, kAmended));
            }
            break;
        }
        case EventCode::Cancellation:
            if (parent != nullptr) {
                Put(parent->Row.UnfilledQty, int64_t{0});
                SetStatus(*parent, ClosingWord(parent->Row, kWithdrawn));
                SendRows(kUpdateRows, m_Rows.IndexOf(parent), kChangedRows);
            }
            break;
        default:
            break;
    }
}

void CRSORDE21::ApplyFill(OrderEntry& own, const OrderEvent& event) {
    OrderRow& row = own.Row;
    const int64_t filled = Figure(row.FilledQty) + event.Quantity;
    const int64_t open = Figure(row.UnfilledQty) - event.Quantity;
    Put(row.FilledQty, filled);
    Put(row.FillPrice, event.Columns.OrderPrice);
    Put(row.UnfilledQty, std::max(open, int64_t{0}));
    LimitFilled(row, filled);
    SetStatus(own, FillWord(filled, open));
}

// Whatever comes of them, they leave.
void CRSORDE21::DrainPending(int32_t orderNo) {
    OrderEvent event;
    while (m_Pending.Take(orderNo, event)) {
        ApplyEvent(event);
    }
}

// ------------------------------------------------------------------ rows

void CRSORDE21::InsertRow(const OrderEvent& event, RowMode mode) {
    if (m_Rows.InsertTop(BuildRow(event, mode), RowMark::New) != nullptr) {
        SendRows(kUpdateRows, kNoSingleRow, kNewRows);
    }
}

void CRSORDE21::SetStatus(OrderEntry& entry, const Word& word) {
    PutWord(entry.Row.Status, word);
    m_Rows.SetMark(&entry, RowMark::Changed);
}

void CRSORDE21::ClearOrders() {
    m_Pending.Clear();
    m_Rows.Clear();
}

// ------------------------------------------------------------------ the view

void CRSORDE21::SendRows(char operation, int index, char action) {
    PostToView(PackMarked(m_Rows, m_Tag, operation, index, action));
}

void CRSORDE21::OnEndUnpack() {
    SendRows(kUpdateRows, kNoSingleRow, kChangedRows);
}
