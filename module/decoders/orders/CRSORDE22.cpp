#include "module/decoders/orders/CRSORDE22.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "module/decoders/orders/OrderFilters.h"

namespace {

// "Sending", "Amending", "Withdrawing", and whatever such words an inquiry has.
bool IsInTransit(const OrderRow& row) {
    const std::string_view status(row.Status, sizeof(row.Status));
    return status.substr(0, status.find('\0')).find("ing") != std::string_view::npos;
}

}  // namespace

CRSORDE22::CRSORDE22(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRSORDE22::OnOrderPacket>) {}

int CRSORDE22::OnInit(InitReader& in) {
    m_Tag = in.Tag();
    ClearOrders();
    FilteredOrdersInit init;
    if (!in.Read(init)) {
        return 0;
    }
    const int count = ToLong(init.Repeat.Count);
    if (count < 0) {
        return 0;
    }
    m_Filter = init;
    if (count == 0) {
        return 1;
    }
    if (!m_Rows.ReadRows(in, count)) {
        return 0;
    }
    SendRows(kAllRows);
    return 1;
}

// ------------------------------------------------------------------ notices

int CRSORDE22::OnOrderPacket(const OrderPacket& notice) {
    if (m_LastPacket.IsRepeatedBy(notice) || !m_UserId.IsOf(notice) ||
        std::strncmp(notice.UserField, m_Filter.UserField, sizeof(notice.UserField)) != 0 ||
        !PassesFilters(m_Filter, notice) || !IsRecord(notice)) {
        return 0;
    }
    OrderEvent event = BuildEvent(notice, SendingRoutes(), DivisorOfLot(notice));
    event.Columns.ChannelMark = ChannelMarkOf(notice);
    switch (event.Way) {
        case Route::Sending:
            ApplySending(event);
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
        case Route::Acceptance:
        case Route::Dropped:
            break;
    }
    return 1;
}

// An amendment or a cancellation of a listed order makes no row before its confirmation.
void CRSORDE22::ApplySending(const OrderEvent& event) {
    if (m_Rows.FindRow(event.ParentOrderNo) == nullptr) {
        InsertRow(event);
    }
}

void CRSORDE22::ApplyRefusal(const OrderEvent& event) {
    if (OrderEntry* own = m_Rows.FindRow(event.OrderNo)) {
        CloseRow(*own, kReject);
    } else {
        InsertRow(event);
    }
}

bool CRSORDE22::ApplyEvent(const OrderEvent& event) {
    if (OrderEntry* own = m_Rows.FindRow(event.OrderNo)) {
        ApplyToOwn(*own, event);
        return true;
    }
    if (OrderEntry* parent = m_Rows.FindRow(event.ParentOrderNo)) {
        ApplyToParent(*parent, event);
        return true;
    }
    // A fill makes a row of its own, and waits for its order as well.
    ApplySending(event);
    return event.EventCode != EventCode::Fill;
}

void CRSORDE22::ApplyToOwn(OrderEntry& own, const OrderEvent& event) {
    const bool transit = IsInTransit(own.Row);
    switch (event.EventCode) {
        case EventCode::Opening:
            if (transit) {
                OpenRow(own, event);
                own.Row.ChannelMark = event.Columns.ChannelMark;
            }
            break;
        case EventCode::Fill:
            ApplyFill(own, event);
            break;
        case EventCode::Amendment:
            if (transit) {
                OpenRow(own, event);
            }
            if (OrderEntry* parent = m_Rows.FindRow(event.ParentOrderNo)) {
                SetStatus(*parent, kAmended);
            }
            break;
        case EventCode::Cancellation:
            if (transit) {
                SetStatus(own, kWithdrawn);
            }
            break;
        default:
            break;
    }
}

void CRSORDE22::ApplyToParent(OrderEntry& parent, const OrderEvent& event) {
    switch (event.EventCode) {
        case EventCode::Opening:
            if (!IsOneOf(parent.Row.Status, {kOpen, kDone, kAmended, kWithdrawn})) {
                OpenRow(parent, event);
                parent.Row.ChannelMark = event.Columns.ChannelMark;
            }
            break;
        case EventCode::Fill:
            ApplyFill(parent, event);
            break;
        case EventCode::Amendment:
            if (!IsOneOf(parent.Row.Status, {kDone, kAmended, kWithdrawn})) {
                CloseRow(parent, kAmended);
                InsertRow(event);
            }
            break;
        case EventCode::Cancellation:
            if (!IsOneOf(parent.Row.Status, {kWithdrawn})) {
                CloseRow(parent, kWithdrawn);
            }
            break;
        default:
            break;
    }
}

// The average price of all fills; a fill of nothing leaves it.
void CRSORDE22::ApplyFill(OrderEntry& entry, const OrderEvent& event) {
    OrderRow& row = entry.Row;
    const int64_t before = Figure(row.FilledQty);
    const int64_t filled = before + event.Quantity;
    const int64_t open = Figure(row.UnfilledQty) - event.Quantity;
    Put(row.FilledQty, filled);
    if (filled != 0) {
        const double paid = ToDouble(row.FillPrice) * static_cast<double>(before);
        const double added = ToDouble(event.Columns.OrderPrice) * static_cast<double>(event.Quantity);
        Put<0>(row.FillPrice, (paid + added) / static_cast<double>(filled));
    }
    Put(row.UnfilledQty, std::max(open, int64_t{0}));
    LimitFilled(row, filled);
    SetStatus(entry, FillWord(filled, open));
}

// Whatever comes of them, they leave.
void CRSORDE22::DrainPending(int32_t orderNo) {
    OrderEvent event;
    while (m_Pending.Take(orderNo, event)) {
        ApplyEvent(event);
    }
}

// ------------------------------------------------------------------ rows

void CRSORDE22::InsertRow(const OrderEvent& event) {
    if (m_Rows.InsertTop(BuildRow(event), RowMark::New) != nullptr) {
        SendRows(kNewRows);
    }
}

void CRSORDE22::OpenRow(OrderEntry& entry, const OrderEvent& event) {
    Put(entry.Row.DisplayText, event.Columns.DisplayText);
    SetStatus(entry, kOpen);
}

void CRSORDE22::CloseRow(OrderEntry& entry, const Word& word) {
    Put(entry.Row.UnfilledQty, int64_t{0});
    SetStatus(entry, word);
}

// A shown row whose word changes is looked at when shown rows are withdrawn.
void CRSORDE22::SetStatus(OrderEntry& entry, const Word& word) {
    PutWord(entry.Row.Status, word);
    m_Rows.SetMark(&entry, RowMark::Changed);
    m_Rows.Touch(&entry);
}

void CRSORDE22::ClearOrders() {
    m_Pending.Clear();
    m_Rows.Clear();
}

// ------------------------------------------------------------------ the view

void CRSORDE22::OnEndUnpack() {
    SendRows(kChangedRows);
}

void CRSORDE22::SendRows(char action) {
    const StatusRule* rule = FindStatusRule(m_Filter.StatusFilter);
    RowMark wanted = RowMark::Changed;
    int count = 0;
    m_Rows.VisitMarked([&](const OrderEntry& entry) {
        const bool passesByWord = rule == nullptr || rule->HasWordOf(entry.Row);
        const bool shown = OrderRows::IsShown(&entry);
        if (!passesByWord && !(rule->KeepsShown && shown)) {
            return RowMark::None;
        }
        RowMark mark = action == kAllRows ? RowMark::Changed : entry.Mark;
        // A row that comes into the filter is new to the view; the rest of this send is for new rows then.
        if (rule != nullptr && rule->Promotes && passesByWord && !shown && action == kChangedRows) {
            mark = RowMark::New;
            action = kNewRows;
        }
        wanted = action == kNewRows ? RowMark::New : RowMark::Changed;
        count += mark == wanted ? 1 : 0;
        return mark;
    });
    // Changed rows that were counted before the action turned wait, and leave a blank tail.
    const int copied = m_Rows.CountMarked(wanted);
    ViewBuffer message;
    if (count > 0) {
        message = MakeMessage(m_Tag, kUpdateRows, kNoSingleRow, action, std::max(count, copied));
    }
    if (message) {
        Put(message.As<OrderMessage>().Repeat.Count, copied + 1);
        OrderRow* copy = RowsOf(message) + copied;
        m_Rows.TakeMarked(wanted, [&](OrderEntry& entry) {
            *--copy = entry.Row;
            copy->ShownMark = ' ';
            m_Rows.SetShown(&entry, true);
        });
        PostToView(std::move(message));
    }
    if (HasWindow()) {
        PruneShown();
    }
}

// From the bottom, so that a deletion does not change the places of the rows still to come. The filter is
// asked for each time, since the window may have called back and set another.
void CRSORDE22::PruneShown() {
    for (const StatusRule* rule = FindStatusRule(m_Filter.StatusFilter); rule != nullptr && rule->KeepsShown;
         rule = FindStatusRule(m_Filter.StatusFilter)) {
        OrderEntry* entry = m_Rows.TakeTouched();
        if (entry == nullptr) {
            return;
        }
        if (OrderRows::IsShown(entry) && !rule->HasWordOf(entry->Row)) {
            const int place = m_Rows.CountShownAbove(entry);
            m_Rows.SetShown(entry, false);
            SendDeletion(place);
        }
    }
}

void CRSORDE22::SendDeletion(int place) {
    PostToView(MakeMessage(m_Tag, kDeleteRow, place, kChangedRows, 0));
}
