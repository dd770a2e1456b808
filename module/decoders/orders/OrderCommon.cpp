#include "module/decoders/orders/OrderCommon.h"

#include <cassert>
#include <cstring>

#include "host/services/services.h"
#include "module/framework/rows_buffer.h"

// ------------------------------------------------------------------ notices

OrderUser::OrderUser() {
    std::memcpy(m_UserId, CQelData21::GetUserID(), sizeof(m_UserId));
}

bool OrderUser::IsOf(const OrderPacket& notice) const {
    return std::strncmp(notice.UserId, m_UserId, sizeof(m_UserId)) == 0;
}

bool LastNotice::IsRepeatedBy(const OrderPacket& notice) {
    const auto* packet = reinterpret_cast<const char*>(&notice);
    if (std::strncmp(packet, reinterpret_cast<const char*>(&m_Packet), sizeof(notice)) == 0) {
        return true;
    }
    m_Packet = notice;
    return false;
}

// ------------------------------------------------------------------ rows

void ClearFigure(char (&field)[15]) {
    constexpr std::size_t kZeroBytes = 2;
    FillBlank(field);
    std::memset(field + sizeof(field) - kZeroBytes, '\0', kZeroBytes);
}

void ReduceOpen(char (&unfilledQty)[15], int64_t quantity) {
    const int64_t open = Figure(unfilledQty) - quantity;
    if (open < 1) {
        ClearFigure(unfilledQty);
    } else {
        Put(unfilledQty, open);
    }
}

void LimitFilled(OrderRow& row, int64_t filled) {
    const int64_t ordered = Figure(row.OrderQty);
    if (ordered < filled) {
        Put(row.FilledQty, ordered);
    }
}

const Word& FillWord(int64_t filled, int64_t open) {
    if (filled <= 0) {
        return filled == 0 ? kOpen : kBlankWord;
    }
    return open > 0 ? kPartial : open == 0 ? kDone : kBlankWord;
}

// ------------------------------------------------------------------ lists of answers

OrderRow BuildRow(const OrderEvent& event, RowMode mode) {
    OrderRow row = event.Columns;
    const bool confirmed = mode == RowMode::Confirmed;
    if (confirmed || event.EventCode != EventCode::Refusal) {  // nothing of a refused order is open
        Put(row.UnfilledQty, event.Quantity);
    }
    if (confirmed) {
        PutWord(row.Status, kOpen);
    }
    return row;
}

void ReduceParent(OrderRows& rows, const OrderEvent& event) {
    if (event.EventCode != EventCode::Amendment && event.EventCode != EventCode::Cancellation) {
        return;
    }
    if (OrderEntry* parent = rows.FindRow(event.ParentOrderNo)) {
        ReduceOpen(parent->Row.UnfilledQty, event.Quantity);
        rows.SetMark(parent, RowMark::Changed);
    }
}

const Word& KindWord(EventCode code) {
    return code == EventCode::Amendment      ? kAmendUnconfirmed
           : code == EventCode::Cancellation ? kCancelUnconfirmed
                                             : kAccepted;
}

// ------------------------------------------------------------------ the list of sendings

OrderRow BuildRow(const OrderEvent& event) {
    OrderRow row = event.Columns;
    const bool sending = event.Way == Route::Sending;
    switch (event.EventCode) {
        case EventCode::Opening:
            Put(row.UnfilledQty, event.Quantity);
            break;
        case EventCode::Fill:
            if (sending) {
                Put(row.UnfilledQty, event.Quantity);
                break;
            }
            // A fill without its order knows nothing of what was ordered.
            FillBlank(row.OrderPrice);
            FillBlank(row.OrderQty);
            Put(row.FillPrice, event.Columns.OrderPrice);
            Put(row.FilledQty, event.Quantity);
            PutWord(row.Status, kPartial);
            break;
        case EventCode::Amendment:
            Put(row.UnfilledQty, event.Quantity);
            if (!sending) {
                PutWord(row.Status, kOpen);
            }
            break;
        default:
            break;
    }
    return row;
}

// ------------------------------------------------------------------ messages

ViewBuffer MakeMessage(const RequestTag& tag, char operation, int index, char action, int rows) {
    assert(rows >= 0);
    ViewBuffer buffer =
        ViewBuffer::Blank(sizeof(OrderMessage) + static_cast<std::size_t>(rows) * sizeof(OrderRow));
    if (buffer) {
        auto& message = buffer.As<OrderMessage>();
        message.Tag = tag;
        message.Repeat = RepeatOf<OrderRow>(static_cast<std::size_t>(rows) + 1);
        message.Control.Operation = operation;
        Put(message.Control.Index, index);
        message.Control.Action = action;
    }
    return buffer;
}

ViewBuffer PackMarked(OrderRows& rows, const RequestTag& tag, char operation, int index, char action) {
    const RowMark wanted = action == kNewRows ? RowMark::New : RowMark::Changed;
    const int count = rows.CountMarked(wanted);
    if (count == 0 && operation == kUpdateRows) {
        return {};
    }
    ViewBuffer message = MakeMessage(tag, operation, index, action, count);
    if (message) {
        OrderRow* copy = RowsOf(message) + count;
        rows.TakeMarked(wanted, [&copy](const OrderEntry& entry) { *--copy = entry.Row; });
    }
    return message;
}
