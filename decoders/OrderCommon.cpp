#include "decoders/OrderCommon.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "framework/tickmux.h"

// ------------------------------------------------------------------ events

namespace {

// A notice's text up to a zero byte; the field is blank behind it.
template <std::size_t N, std::size_t M>
void PutText(char (&dst)[N], const char (&src)[M]) {
    static_assert(N >= M);
    std::copy(src, std::find(src, src + M, '\0'), dst);
}

}  // namespace

bool IsRecord(const OrderPacket& notice) {
    return std::string_view(notice.RecordKind, sizeof(notice.RecordKind)) == "01";
}

bool IsBoard(const OrderPacket& notice, std::string_view name) {
    return std::string_view(notice.BoardName, sizeof(notice.BoardName)).starts_with(name);
}

OrderEvent MakeEvent(const OrderPacket& notice, int64_t divisor) {
    OrderEvent event{};
    event.Number = ToLong(notice.OrderNo);
    event.ParentNumber = ToLong(notice.ParentOrderNo);
    event.Quantity = Figure(notice.Quantity) / divisor;

    OrderRow& row = event.Columns;
    FillBlank(row);
    PutText(row.Time, notice.Time);
    PutText(row.DisplayText, notice.DisplayText);
    PutText(row.Code, notice.Code);
    if (notice.Side == '1' || notice.Side == '2') {
        row.SideTag[0] = notice.Side == '1' ? '2' : '4';
    }
    row.SideFlag = notice.Side == '1' ? '1' : notice.Side == '2' ? '0' : notice.Side;
    row.BoardFlag = IsBoard(notice, "TN") ? '1' : '0';
    PutText(row.BoardName, notice.BoardName);
    PutText(row.OrderPrice, notice.Price);
    Put(row.OrderQty, event.Quantity);
    PutText(row.UserId, notice.UserId);
    PutText(row.OrderNo, notice.OrderNo);
    return event;
}

void OrderEvent::TakeRoute(const NoticeRoute& route) {
    EventCode = route.EventCode;
    Way = route.Way;
    PutWord(Columns.Status, route.Status);
}

// ------------------------------------------------------------------ routes

bool NoticeRoute::Fits(const OrderPacket& notice) const {
    const auto fits = [](char wanted, char is) { return wanted == kAny || wanted == is; };
    const bool result =
        ResultFlag == kRefused ? notice.ResultFlag != '0' : fits(ResultFlag, notice.ResultFlag);
    return result && fits(NoticeKind, notice.NoticeKind) && fits(OrderState, notice.OrderState) &&
           fits(OrderAction, notice.OrderAction);
}

const NoticeRoute* FindRoute(std::span<const NoticeRoute> routes, const OrderPacket& notice) {
    const auto route = std::find_if(routes.begin(), routes.end(),
                                    [&](const NoticeRoute& candidate) { return candidate.Fits(notice); });
    return route == routes.end() ? nullptr : &*route;
}

// ------------------------------------------------------------------ rows

void ClearFigure(char (&field)[15]) {
    constexpr std::size_t kZeroBytes = 2;
    FillBlank(field);
    std::memset(field + sizeof(field) - kZeroBytes, '\0', kZeroBytes);
}

void PutOpenOrClear(char (&field)[15], int64_t open) {
    if (open < 1) {
        ClearFigure(field);
    } else {
        Put(field, open);
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

// ------------------------------------------------------------------ the decoder

OrderDecoder::OrderDecoder(HWND hWnd, const PacketSlots& slots) : CRTMPacketDecoder(hWnd, slots) {
    std::memcpy(m_UserId, CQelData21::GetUserID(), sizeof(m_UserId));
}

void OrderDecoder::Stop() {
    CRTMPacketDecoder::Stop();
    ClearOrders();
}

void OrderDecoder::Release() {
    CRTMPacketDecoder::Release();
    ClearOrders();
}

void OrderDecoder::ClearOrders() {
    m_Pending.Clear();
    m_Rows.Clear();
}

bool OrderDecoder::TakeRows(InitReader& in, int count) {
    ClearOrders();
    const auto rowSize = static_cast<int>(sizeof(OrderRow));
    if (in.Remain() != count * rowSize) {
        return false;
    }
    // The list grows at its top, so the last row goes in first.
    const char* rows = in.Rest();
    for (int i = count - 1; i >= 0; --i) {
        OrderRow row;
        std::memcpy(&row, rows + static_cast<std::ptrdiff_t>(i) * rowSize, sizeof(row));
        OrderEntry* entry = m_Rows.InsertTop(row);
        if (entry == nullptr) {
            ClearOrders();
            return false;
        }
        m_Rows.SetMark(entry, RowMark::Changed);
    }
    return true;
}

bool OrderDecoder::IsOurs(const OrderPacket& notice) const {
    return std::strncmp(notice.UserId, m_UserId, sizeof(m_UserId)) == 0;
}

void OrderDecoder::ApplyOrPark(const OrderEvent& event) {
    if (!ApplyEvent(event)) {
        m_Pending.Park(event);
    }
}

// Whatever comes of them, they leave.
void OrderDecoder::DrainPending(int32_t number) {
    OrderEvent event;
    while (m_Pending.Take(number, event)) {
        ApplyEvent(event);
    }
}

ViewBuffer OrderDecoder::MakeMessage(char operation, int index, char action, int rows) const {
    ViewBuffer buffer =
        ViewBuffer::Blank(sizeof(OrderMessage) + static_cast<std::size_t>(rows) * sizeof(OrderRow));
    if (buffer) {
        auto& message = buffer.As<OrderMessage>();
        message.Tag = m_Tag;
        Put(message.Repeat.Count, rows + 1);
        Put(message.Repeat.Size, static_cast<int32_t>(sizeof(OrderRow)));
        message.Control.Operation = operation;
        Put(message.Control.Index, index);
        message.Control.Action = action;
    }
    return buffer;
}

bool RepeatFilter::IsRepeated(const OrderPacket& notice) {
    const auto* packet = reinterpret_cast<const char*>(&notice);
    if (std::strncmp(packet, reinterpret_cast<const char*>(&m_LastPacket), sizeof(notice)) == 0) {
        return true;
    }
    m_LastPacket = notice;
    return false;
}

// ------------------------------------------------------------------ lists of answers

namespace {

constexpr NoticeRoute kAnswerRoutes[] = {
    {'2', '0', '0', '1', '1', kOpen, Route::Acceptance},
    {'2', '0', '0', '2', '2', kAmendUnconfirmed, Route::Acceptance},
    {'2', '0', '0', '3', '3', kCancelUnconfirmed, Route::Acceptance},
    {'2', '0', '0', kAny, kNoEvent, U"", Route::Acceptance},
    {'2', '0', '1', kAny, '1', U"", Route::Apply},
    {'2', '0', '2', '2', '2', U"", Route::Apply},
    {'2', '0', '2', '3', '3', U"", Route::Apply},
    {'2', '0', '2', '4', '5', U"", Route::Apply},
    {kAny, '0', kAny, kAny, kNoEvent, U"", Route::Apply},
};

}  // namespace

int AnsweredOrders::TakeNotice(const OrderPacket& notice, std::span<const NoticeRoute> own) {
    const NoticeRoute* route = FindRoute(own, notice);
    if (route == nullptr) {
        route = FindRoute(kAnswerRoutes, notice);
    }
    const bool wholeUnits = IsBoard(notice, "NG") || IsBoard(notice, "ADV");
    OrderEvent event = MakeEvent(notice, wholeUnits ? 1 : 100);
    event.TakeRoute(*route);
    switch (route->Way) {
        case Route::Acceptance:
            ApplyAcceptance(event);
            DrainPending(event.Number);
            break;
        case Route::Refusal:
            ApplyRefusal(event);
            break;
        case Route::Apply:
            ApplyOrPark(event);
            break;
        case Route::Sending:
        case Route::Dropped:
            break;
    }
    PostListChanged();
    return 1;
}

bool AnsweredOrders::ApplyEvent(const OrderEvent& event) {
    OrderEntry* own = FindRow(event.Number);
    if (own == nullptr) {
        return ApplyWithoutRow(event);
    }
    switch (event.EventCode) {
        case '1':
            Fill(*own, event);
            break;
        case '2':
            ConfirmAmendment(*own, event);
            break;
        case '3':
            ConfirmCancellation(*own, event);
            break;
        case '5':
            Close(*own);
            break;
        default:
            break;
    }
    return true;
}

void AnsweredOrders::InsertRow(const OrderEvent& event, Stage stage) {
    OrderEntry* entry = m_Rows.InsertTop(event.Columns);
    if (entry == nullptr) {
        return;
    }
    constexpr char kRefusedOrder = '4';  // nothing of it is open
    if (stage == Stage::Confirmed || event.EventCode != kRefusedOrder) {
        Put(entry->Row.UnfilledQty, event.Quantity);
    }
    if (stage == Stage::Confirmed) {
        PutWord(entry->Row.Status, kOpen);
    }
    m_Rows.SetMark(entry, RowMark::New);
    SendRows(kUpdateRows, kNoSingleRow, kNewRows);
}

void AnsweredOrders::ReduceParent(const OrderEvent& event) {
    OrderEntry* parent =
        event.EventCode == '2' || event.EventCode == '3' ? FindRow(event.ParentNumber) : nullptr;
    if (parent != nullptr) {
        PutOpenOrClear(parent->Row.UnfilledQty, Figure(parent->Row.UnfilledQty) - event.Quantity);
        Touch(*parent);
    }
}

void AnsweredOrders::PutKindWord(OrderEntry& entry, const OrderEvent& event) {
    PutWord(entry.Row.Status, event.EventCode == '2'   ? kAmendUnconfirmed
                              : event.EventCode == '3' ? kCancelUnconfirmed
                                                       : kAccepted);
    Touch(entry);
}

void AnsweredOrders::SendRows(char operation, int index, char action) {
    const RowMark wanted = action == kNewRows ? RowMark::New : RowMark::Changed;
    const int rows = m_Rows.CountMarked(wanted);
    if (rows == 0 && operation == kUpdateRows) {
        return;
    }
    ViewBuffer buffer = MakeMessage(operation, index, action, rows);
    if (!buffer) {
        return;  // the marks stay
    }
    char* place = buffer.Bytes() + sizeof(OrderMessage);
    m_Rows.TakeMarked(wanted, [&place](const OrderEntry& entry) {
        std::memcpy(place, &entry.Row, sizeof(OrderRow));
        place += sizeof(OrderRow);
    });
    WriteLog(buffer);
    PostToView(std::move(buffer));
}

void AnsweredOrders::EndUnpack() {
    if (m_bChanged != 0 && m_bStopped == 0) {
        m_bChanged = 0;
        SendRows(kUpdateRows, kNoSingleRow, kChangedRows);
    }
}
