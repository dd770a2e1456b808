#include "decoders/CRSORDE22.h"

#include <algorithm>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <string_view>
#include <utility>

#include "decoders/OrderFilters.h"

namespace {

constexpr NoticeRoute kRoutes[] = {
    {'1', '0', kAny, '1', '1', kSending, Route::Sending},
    {'1', '0', kAny, '2', '2', kAmending, Route::Sending},
    {'1', '0', kAny, '3', '3', kWithdrawing, Route::Sending},
    {'1', '0', kAny, kAny, kNoEvent, U"", Route::Sending},
    {'2', '1', kAny, kAny, '4', kReject, Route::Refusal},
    {kAny, kRefused, kAny, kAny, kNoEvent, U"", Route::Dropped},
    {'2', '0', '1', kAny, '1', U"", Route::Apply},
    {'2', '0', '0', '1', '0', kOpen, Route::Apply},
    {'2', '0', '2', '2', '2', kAmended, Route::Apply},
    {'2', '0', '2', '3', '3', kWithdrawn, Route::Apply},
    {'2', '0', '2', '4', '5', U"", Route::Apply},
    {kAny, '0', kAny, kAny, kNoEvent, U"", Route::Apply},
};

struct ChannelRule {
    std::string_view Code;  // empty: any other
    char Mark;
};

constexpr ChannelRule kChannels[] = {
    {"33", 'H'}, {"M1", 'M'}, {"M2", 'M'}, {"M3", 'M'}, {"00", 'D'},
    {"03", 'D'}, {"21", 'A'}, {"T1", 'T'}, {"", 'H'},
};

// On channel 03 some users of one menu have a mark of their own.
char ChannelMark(const OrderPacket& notice) {
    const std::string_view code(notice.ChannelCode, sizeof(notice.ChannelCode));
    if (code == "03" && *CQelData21::GetMenuGrade() == '1' && notice.UserId[0] == '3') {
        return 'W';
    }
    return std::find_if(std::begin(kChannels), std::end(kChannels),
                        [code](const ChannelRule& rule) { return rule.Code.empty() || rule.Code == code; })
        ->Mark;
}

int64_t Divisor(const OrderPacket& notice) {
    if (IsBlank(notice.LotSize)) {
        return 100;
    }
    const int32_t lot = ToLong(notice.LotSize);
    return lot == 0 ? 1 : lot;
}

// "Sending", "Amending", "Withdrawing", and whatever such words an inquiry has.
bool IsInTransit(const OrderRow& row) {
    const std::string_view status(row.Status, sizeof(row.Status));
    return status.substr(0, status.find('\0')).find("ing") != std::string_view::npos;
}

bool IsOneOf(const OrderRow& row, std::initializer_list<Word> words) {
    return std::any_of(words.begin(), words.end(),
                       [&row](const Word& word) { return IsWord(row.Status, word); });
}

}  // namespace

CRSORDE22::CRSORDE22(HWND hWnd) : OrderDecoder(hWnd, Takes<&CRSORDE22::OnOrderPacket>), m_Filter{} {}

int CRSORDE22::Init(const char* buffer) {
    CRTMPacketDecoder::Init(buffer);
    InitReader in(buffer);
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
    if (!TakeRows(in, count)) {
        return 0;
    }
    const PlainArray<OrderEntry*>& rows = m_Rows.SortMarked();
    for (std::size_t i = 0; i < rows.Size(); ++i) {
        m_Rows.Touch(rows[i]);
    }
    SendRows(kAllRows);
    return 1;
}

// ------------------------------------------------------------------ notices

int CRSORDE22::OnOrderPacket(const OrderPacket& notice) {
    if (m_Repeats.IsRepeated(notice) || !IsOurs(notice) ||
        std::strncmp(notice.UserField, m_Filter.UserField, sizeof(notice.UserField)) != 0 ||
        !PassesFilters(m_Filter, notice) || !IsRecord(notice)) {
        return 0;
    }
    const NoticeRoute* route = FindRoute(kRoutes, notice);
    OrderEvent event = MakeEvent(notice, Divisor(notice));
    event.Columns.ChannelMark = ChannelMark(notice);
    event.TakeRoute(*route);
    switch (route->Way) {
        case Route::Sending:
            ApplySending(event);
            DrainPending(event.Number);
            break;
        case Route::Refusal:
            ApplyRefusal(event);
            break;
        case Route::Apply:
            ApplyOrPark(event);
            break;
        case Route::Acceptance:
        case Route::Dropped:
            break;
    }
    return 1;
}

// An amendment or a cancellation of a listed order makes no row before its confirmation.
void CRSORDE22::ApplySending(const OrderEvent& event) {
    if (FindRow(event.ParentNumber) == nullptr) {
        InsertRow(event);
    }
}

void CRSORDE22::ApplyRefusal(const OrderEvent& event) {
    if (OrderEntry* own = FindRow(event.Number)) {
        Close(*own, kReject);
    } else {
        InsertRow(event);
    }
}

bool CRSORDE22::ApplyEvent(const OrderEvent& event) {
    if (OrderEntry* own = FindRow(event.Number)) {
        ApplyToOwn(*own, event);
        return true;
    }
    if (OrderEntry* parent = FindRow(event.ParentNumber)) {
        ApplyToParent(*parent, event);
        return true;
    }
    // A fill makes a row of its own, and waits for its order as well.
    ApplySending(event);
    return event.EventCode != '1';
}

void CRSORDE22::ApplyToOwn(OrderEntry& own, const OrderEvent& event) {
    const bool transit = IsInTransit(own.Row);
    switch (event.EventCode) {
        case '0':
            if (transit) {
                Open(own, event);
                own.Row.ChannelMark = event.Columns.ChannelMark;
            }
            break;
        case '1':
            Fill(own, event);
            break;
        case '2':
            if (transit) {
                Open(own, event);
            }
            if (OrderEntry* parent = FindRow(event.ParentNumber)) {
                SetStatus(*parent, kAmended);
            }
            break;
        case '3':
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
        case '0':
            if (!IsOneOf(parent.Row, {kOpen, kDone, kAmended, kWithdrawn})) {
                Open(parent, event);
                parent.Row.ChannelMark = event.Columns.ChannelMark;
            }
            break;
        case '1':
            Fill(parent, event);
            break;
        case '2':
            if (!IsOneOf(parent.Row, {kDone, kAmended, kWithdrawn})) {
                Close(parent, kAmended);
                InsertRow(event);
            }
            break;
        case '3':
            if (!IsOneOf(parent.Row, {kWithdrawn})) {
                Close(parent, kWithdrawn);
            }
            break;
        default:
            break;
    }
}

// ------------------------------------------------------------------ rows

// The average price of all fills; a fill of nothing leaves it.
void CRSORDE22::Fill(OrderEntry& entry, const OrderEvent& event) {
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

void CRSORDE22::InsertRow(const OrderEvent& event) {
    OrderEntry* entry = m_Rows.InsertTop(event.Columns);
    if (entry == nullptr) {
        return;
    }
    OrderRow& row = entry->Row;
    const bool sending = event.Way == Route::Sending;
    switch (event.EventCode) {
        case '0':
            Put(row.UnfilledQty, event.Quantity);
            break;
        case '1':
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
        case '2':
            Put(row.UnfilledQty, event.Quantity);
            if (!sending) {
                PutWord(row.Status, kOpen);
            }
            break;
        default:
            break;
    }
    Touch(*entry, RowMark::New);
    SendRows(kNewRows);
}

void CRSORDE22::Open(OrderEntry& entry, const OrderEvent& event) {
    Put(entry.Row.DisplayText, event.Columns.DisplayText);
    SetStatus(entry, kOpen);
}

void CRSORDE22::Close(OrderEntry& entry, const Word& word) {
    Put(entry.Row.UnfilledQty, int64_t{0});
    SetStatus(entry, word);
}

void CRSORDE22::SetStatus(OrderEntry& entry, const Word& word) {
    PutWord(entry.Row.Status, word);
    Touch(entry, RowMark::Changed);
}

// A row whose word may have changed is looked at when shown rows are withdrawn.
void CRSORDE22::Touch(OrderEntry& entry, RowMark mark) {
    m_Rows.SetMark(&entry, mark);
    m_Rows.Touch(&entry);
}

// ------------------------------------------------------------------ the view

void CRSORDE22::EndUnpack() {
    if (m_bChanged != 0 && m_bStopped == 0) {
        m_bChanged = 0;
        SendRows(kChangedRows);
    }
}

void CRSORDE22::SendRows(char action) {
    const StatusRule* rule = FindStatusRule(m_Filter.StatusFilter);
    RowMark wanted = RowMark::Changed;
    int count = 0;
    const PlainArray<OrderEntry*>& marked = m_Rows.SortMarked();
    for (std::size_t i = 0; i < marked.Size(); ++i) {
        OrderEntry* entry = marked[i];
        const bool passesByWord = rule == nullptr || rule->HasWordOf(entry->Row);
        const bool shown = OrderRows::IsShown(entry);
        if (!passesByWord && !(rule->KeepsShown && shown)) {
            m_Rows.SetMark(entry, RowMark::None);
            continue;
        }
        // A row that comes into the filter is new to the view; the rest of this send is for new rows then.
        if (rule != nullptr && rule->Promotes && passesByWord && !shown && action == kChangedRows) {
            m_Rows.SetMark(entry, RowMark::New);
            action = kNewRows;
        }
        if (action == kAllRows) {
            m_Rows.SetMark(entry, RowMark::Changed);
        }
        wanted = action == kNewRows ? RowMark::New : RowMark::Changed;
        count += entry->Mark == wanted ? 1 : 0;
    }
    // Changed rows that were counted before the action turned wait, and leave a blank tail.
    const int room = std::max(count, m_Rows.CountMarked(wanted));
    ViewBuffer buffer = count == 0 ? ViewBuffer() : MakeMessage(kUpdateRows, kNoSingleRow, action, room);
    if (buffer) {
        auto* first = reinterpret_cast<OrderRow*>(buffer.Bytes() + sizeof(OrderMessage));
        OrderRow* place = first;
        m_Rows.TakeMarked(wanted, [&](OrderEntry& entry) {
            *place = entry.Row;
            place->ShownMark = ' ';
            ++place;
            m_Rows.SetShown(&entry, true);
        });
        Put(buffer.As<OrderMessage>().Repeat.Count, static_cast<int32_t>(place - first) + 1);
        PostToView(std::move(buffer));
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
            const int place = m_Rows.ShownAbove(entry);
            m_Rows.SetShown(entry, false);
            PostToView(MakeMessage(kDeleteRow, place, kChangedRows, 0));
        }
    }
}
