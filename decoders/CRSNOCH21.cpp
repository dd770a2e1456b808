#include "decoders/CRSNOCH21.h"

#include <cstring>

#include "decoders/OrderLog.h"

namespace {

constexpr NoticeRoute kRoutes[] = {
    {kAny, kRefused, kAny, kAny, kNoEvent, U"", Route::Dropped},
};

// What the acceptance of an order that has a row does to it, by the row's word; the first that fits counts.
enum class Effect { Nothing, Remove, KindWord };

struct AcceptanceRule {
    Word Text;
    std::size_t Offset;
    Effect What;
};

constexpr AcceptanceRule kAcceptanceRules[] = {
    {U"정", 0, Effect::Nothing},    // an amendment's words
    {U"체결", 0, Effect::Nothing},  // being filled, or filled
    {kCancelConfirmed, 0, Effect::Remove},
    {U"취", 0, Effect::KindWord},  // other words of a cancellation
    {U"거부", 4, Effect::Remove},  // refused, whatever was
    {U"", 0, Effect::KindWord},
};

Effect EffectOfAcceptance(const OrderRow& row) {
    const AcceptanceRule* rule = kAcceptanceRules;
    while (!HasWord(row.Status, rule->Text, rule->Offset)) {
        ++rule;
    }
    return rule->What;
}

}  // namespace

CRSNOCH21::CRSNOCH21(HWND hWnd) : AnsweredOrders(hWnd, Takes<&CRSNOCH21::OnOrderPacket>) {}

int CRSNOCH21::Init(const char* buffer) {
    CRTMPacketDecoder::Init(buffer);
    InitReader in(buffer);
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
    // Without rows those of an earlier inquiry stay.
    return count == 0 || TakeRows(in, count) ? 1 : 0;
}

int CRSNOCH21::OnOrderPacket(const OrderPacket& notice) {
    // The key reaches one byte past the notice's field, into the order number.
    const char* key = reinterpret_cast<const char*>(&notice) + offsetof(OrderPacket, UserField);
    if (!IsOurs(notice) || std::strncmp(key, m_UserField, sizeof(m_UserField)) != 0 || !IsRecord(notice)) {
        return 0;
    }
    return TakeNotice(notice, kRoutes);
}

void CRSNOCH21::ApplyAcceptance(const OrderEvent& event) {
    OrderEntry* own = FindRow(event.Number);
    if (own == nullptr) {
        InsertRow(event, Stage::Accepted);
        ReduceParent(event);
        return;
    }
    switch (EffectOfAcceptance(own->Row)) {
        case Effect::Nothing:
            break;
        case Effect::Remove:
            RemoveRow(*own);
            break;
        case Effect::KindWord:
            PutKindWord(*own, event);
            break;
    }
}

// A confirmation before its acceptance: the parent goes at once, the event waits.
bool CRSNOCH21::ApplyWithoutRow(const OrderEvent& event) {
    if (event.EventCode == '2' || event.EventCode == '3') {
        if (OrderEntry* parent = FindRow(event.ParentNumber)) {
            RemoveRow(*parent);
        }
    }
    if (event.EventCode == '2') {
        InsertRow(event, Stage::Confirmed);
    }
    return false;
}

void CRSNOCH21::Fill(OrderEntry& own, const OrderEvent& event) {
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
    Touch(own);
}

void CRSNOCH21::ConfirmAmendment(OrderEntry& own, const OrderEvent& event) {
    if (HasWord(own.Row.Status, kAmendConfirmed)) {
        return;
    }
    PutWord(own.Row.Status, kAmendConfirmed);
    Put(own.Row.UnfilledQty, event.Quantity);
    RemoveIfNothingOpen(event.ParentNumber);
    // Looked up again, since a row that goes is told to the window, which may call back.
    if (OrderEntry* still = FindRow(event.Number)) {
        Touch(*still);
    }
}

void CRSNOCH21::ConfirmCancellation(OrderEntry& own, const OrderEvent& event) {
    if (HasWord(own.Row.Status, kCancelConfirmed)) {
        return;
    }
    RemoveRow(own);
    RemoveIfNothingOpen(event.ParentNumber);
}

void CRSNOCH21::Close(OrderEntry& own) {
    RemoveRow(own);
}

void CRSNOCH21::RemoveRow(OrderEntry& entry) {
    const int place = m_Rows.PlaceOf(&entry);
    m_Rows.Remove(&entry);
    SendRows(kDeleteRow, place, kChangedRows);
}

void CRSNOCH21::RemoveIfNothingOpen(int32_t number) {
    OrderEntry* entry = FindRow(number);
    if (entry != nullptr && Figure(entry->Row.UnfilledQty) < 1) {
        RemoveRow(*entry);
    }
}

void CRSNOCH21::WriteLog(ViewBuffer& message) {
    constexpr Word kTag = U"EndRTMUnpack에서";
    WriteLogLine("RSNOCH21.txt", kTag.Text(),
                 {message.Bytes(), static_cast<std::size_t>(message.BodyLength())});
}
