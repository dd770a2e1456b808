#include "module/decoders/orders/CRSNOCH21.h"

#include <cstring>
#include <utility>

#include "module/decoders/orders/OrderLog.h"

namespace {

// What the acceptance of an order that has a row does to it, by the row's word; the first that fits counts.
enum class Effect { Nothing, Remove, KindWord };

struct AcceptanceRule {
    Word Text;
    std::size_t Offset;
    Effect What;
};

constexpr AcceptanceRule kAcceptanceRules[] = {
    {U"정", 0, Effect::Nothing},                                          // an amendment's words
    {U"체결", 0, Effect::Nothing},                                        // being filled, or filled
    {kCancelConfirmed, 0, Effect::Remove}, {U"취", 0, Effect::KindWord},  // other words of a cancellation
    {U"거부", 4, Effect::Remove},                                         // refused, whatever was
    {kBlankWord, 0, Effect::KindWord},
};

Effect EffectOfAcceptance(const OrderRow& row) {
    const AcceptanceRule* rule = kAcceptanceRules;
    while (!HasWord(row.Status, rule->Text, rule->Offset)) {
        ++rule;
    }
    return rule->What;
}

void WriteLog(ViewBuffer& message) {
    constexpr Word kTag = U"EndRTMUnpack에서";
    WriteLogLine("RSNOCH21.txt", kTag.Text(),
                 {message.Bytes(), static_cast<std::size_t>(message.BodyLength())});
}

}  // namespace

CRSNOCH21::CRSNOCH21(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRSNOCH21::OnOrderPacket>) {}

int CRSNOCH21::OnInit(InitReader& in) {
    m_Tag = in.Tag();
    OpenOrdersInit init;
    if (!in.Read(init)) {
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

int CRSNOCH21::OnOrderPacket(const OrderPacket& notice) {
    // The key reaches one byte past the notice's field, into the order number.
    const char* key = reinterpret_cast<const char*>(&notice) + offsetof(OrderPacket, UserField);
    if (!m_UserId.IsOf(notice) || std::strncmp(key, m_UserField, sizeof(m_UserField)) != 0 ||
        !IsRecord(notice)) {
        return 0;
    }
    const OrderEvent event = BuildEvent(notice, AnswerRoutes(), DivisorOfBoard(notice));
    switch (event.Way) {
        case Route::Acceptance:
            ApplyAcceptance(event);
            DrainPending(event.OrderNo);
            break;
        case Route::Apply:
            if (!ApplyEvent(event)) {
                m_Pending.Park(event);
            }
            break;
        case Route::Sending:
        case Route::Refusal:  // what was refused was never open
        case Route::Dropped:
            break;
    }
    PostListChanged();
    return 1;
}

void CRSNOCH21::ApplyAcceptance(const OrderEvent& event) {
    OrderEntry* own = m_Rows.FindRow(event.OrderNo);
    if (own == nullptr) {
        InsertRow(event, RowMode::Accepted);
        ReduceParent(m_Rows, event);
        return;
    }
    switch (EffectOfAcceptance(own->Row)) {
        case Effect::Nothing:
            break;
        case Effect::Remove:
            RemoveRow(*own);
            break;
        case Effect::KindWord:
            PutWord(own->Row.Status, KindWord(event.EventCode));
            m_Rows.SetMark(own, RowMark::Changed);
            break;
    }
}

bool CRSNOCH21::ApplyEvent(const OrderEvent& event) {
    OrderEntry* own = m_Rows.FindRow(event.OrderNo);
    if (own == nullptr) {
        // A confirmation before its acceptance: the parent goes at once, the event waits.
        OrderEntry* parent = m_Rows.FindRow(event.ParentOrderNo);
        const bool amended = event.EventCode == EventCode::Amendment;
        if (parent != nullptr && (amended || event.EventCode == EventCode::Cancellation)) {
            RemoveRow(*parent);
        }
        if (amended) {
            InsertRow(event, RowMode::Confirmed);
        }
        return false;
    }
    switch (event.EventCode) {
        case EventCode::Fill:
            ApplyFill(*own, event);
            break;
        case EventCode::Amendment:
            if (!HasWord(own->Row.Status, kAmendConfirmed)) {
                PutWord(own->Row.Status, kAmendConfirmed);
                Put(own->Row.UnfilledQty, event.Quantity);
                RemoveIfNothingOpen(event.ParentOrderNo);
                if (OrderEntry* still = m_Rows.FindRow(event.OrderNo)) {
                    m_Rows.SetMark(still, RowMark::Changed);
                }
            }
            break;
        case EventCode::Cancellation:
            if (!HasWord(own->Row.Status, kCancelConfirmed)) {
                RemoveRow(*own);
                RemoveIfNothingOpen(event.ParentOrderNo);
            }
            break;
        case EventCode::Closing:
            RemoveRow(*own);
            break;
        default:
            break;
    }
    return true;
}

void CRSNOCH21::ApplyFill(OrderEntry& own, const OrderEvent& event) {
    OrderRow& row = own.Row;
    const int64_t filled = Figure(row.FilledQty) + event.Quantity;
    const int64_t open = Figure(row.UnfilledQty) - event.Quantity;
    Put(row.FilledQty, filled);
    Put(row.FillPrice, event.Columns.OrderPrice);
    if (open < 1) {
        RemoveRow(own);
        return;
    }
    Put(row.UnfilledQty, open);
    PutWord(row.Status, FillWord(filled, open));
    LimitFilled(row, filled);
    m_Rows.SetMark(&own, RowMark::Changed);
}

// Whatever comes of them, they leave.
void CRSNOCH21::DrainPending(int32_t orderNo) {
    OrderEvent event;
    while (m_Pending.Take(orderNo, event)) {
        ApplyEvent(event);
    }
}

// ------------------------------------------------------------------ rows

void CRSNOCH21::InsertRow(const OrderEvent& event, RowMode mode) {
    if (m_Rows.InsertTop(BuildRow(event, mode), RowMark::New) != nullptr) {
        SendRows(kUpdateRows, kNoSingleRow, kNewRows);
    }
}

void CRSNOCH21::RemoveRow(OrderEntry& entry) {
    const int index = m_Rows.IndexOf(&entry);
    m_Rows.Remove(&entry);
    SendRows(kDeleteRow, index, kChangedRows);
}

void CRSNOCH21::RemoveIfNothingOpen(int32_t orderNo) {
    OrderEntry* entry = m_Rows.FindRow(orderNo);
    if (entry != nullptr && Figure(entry->Row.UnfilledQty) < 1) {
        RemoveRow(*entry);
    }
}

void CRSNOCH21::ClearOrders() {
    m_Pending.Clear();
    m_Rows.Clear();
}

// ------------------------------------------------------------------ the view

void CRSNOCH21::SendRows(char operation, int index, char action) {
    if (ViewBuffer message = PackMarked(m_Rows, m_Tag, operation, index, action)) {
        WriteLog(message);
        PostToView(std::move(message));
    }
}

void CRSNOCH21::OnEndUnpack() {
    SendRows(kUpdateRows, kNoSingleRow, kChangedRows);
}
