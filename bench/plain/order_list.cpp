#include "bench/plain/order_list.h"

#include <cstdio>
#include <cstdlib>

#include "host/services.h"

namespace plain {

// ------------------------------------------------------------------ fields

namespace {

// A packet's text with a zero byte behind it.
void TakeText(char* dst, const char* src, size_t length) {
    memcpy(dst, src, length);
    dst[length] = '\0';
}

}  // namespace

void PutText(char* dst, size_t width, const char* text) {
    memset(dst, ' ', width);
    for (size_t i = 0; i < width && text[i] != '\0'; ++i) {
        dst[i] = text[i];
    }
}

void PutStatus(OrderRow& row, const char* word) {
    PutText(row.Status, sizeof(row.Status), word);
}

std::string StatusOf(const OrderRow& row) {
    return Trimmed(row.Status, sizeof(row.Status));
}

bool BeginsWith(const std::string& text, const char* head) {
    return text.compare(0, strlen(head), head) == 0;
}

int64_t ReadQuantity(const char (&field)[15]) {
    return AsciiToInt64(field, sizeof(field));
}

void WriteQuantity(char (&field)[15], int64_t value) {
    Int64ToAscii(value, field, sizeof(field));
}

void ClearQuantity(char (&field)[15]) {
    memset(field, ' ', 13);
    memset(field + 13, '\0', 2);
}

const char* WordAfterFill(int64_t filled, int64_t open) {
    if (filled == 0) {
        return "Open";
    }
    if (filled > 0 && open > 0) {
        return "Partial";
    }
    if (filled > 0 && open == 0) {
        return "Done";
    }
    return "";
}

// ------------------------------------------------------------------ life

OrderList::OrderList(HWND window) : Decoder(window) {
    TakeText(m_UserId, CQelData21::GetUserID(), sizeof(m_UserId) - 1);
    memset(m_LastPacket, ' ', sizeof(m_LastPacket));
}

void OrderList::Stop() {
    Decoder::Stop();
    ClearOrders();
}

void OrderList::Release() {
    Decoder::Release();
    ClearOrders();
}

void OrderList::EndUnpack() {
    if (m_bChanged != 0 && m_bStopped == 0) {
        SendRows(kUpdateRows, kNoSingleRow, kChangedRows);
        m_bChanged = 0;
    }
}

void OrderList::ClearOrders() {
    for (OrderEvent* event : m_Pending) {
        delete event;
    }
    m_Pending.clear();
    for (ListedOrder* order : m_Rows) {
        delete order;
    }
    m_Rows.clear();
}

bool OrderList::ReadRows(int count) {
    ClearOrders();
    if (m_nInitRemain != count * static_cast<int>(sizeof(OrderRow))) {
        return false;
    }
    for (int i = 0; i < count; ++i) {
        auto* order = new ListedOrder;
        ReadBytes(&order->Row, sizeof(order->Row));
        order->Mark = kChangedRow;
        m_Rows.push_back(order);
    }
    return true;
}

// ------------------------------------------------------------------ notices

bool OrderList::IsOurs(const OrderPacket& notice) const {
    return strncmp(notice.UserId, m_UserId, sizeof(m_UserId) - 1) == 0;
}

bool OrderList::IsRepeated(const OrderPacket& notice) {
    const char* packet = reinterpret_cast<const char*>(&notice);
    if (strncmp(packet, m_LastPacket, sizeof(m_LastPacket)) == 0) {
        return true;
    }
    memcpy(m_LastPacket, packet, sizeof(m_LastPacket));
    return false;
}

OrderEvent OrderList::MakeEvent(const OrderPacket& notice, int64_t divisor) {
    OrderEvent event = {};
    event.StatusWord = "";
    event.ChannelMark = ' ';
    event.Side = notice.Side;
    event.BoardFlag = strncmp(notice.BoardName, "TN", 2) == 0 ? '1' : '0';
    TakeText(event.Time, notice.Time, sizeof(notice.Time));
    TakeText(event.DisplayText, notice.DisplayText, sizeof(notice.DisplayText));
    TakeText(event.ParentOrderNo, notice.ParentOrderNo, sizeof(notice.ParentOrderNo));
    TakeText(event.Code, notice.Code, sizeof(notice.Code));
    TakeText(event.BoardName, notice.BoardName, sizeof(notice.BoardName));
    TakeText(event.OrderNo, notice.OrderNo, sizeof(notice.OrderNo));
    TakeText(event.UserId, notice.UserId, sizeof(notice.UserId));
    TakeText(event.Price, notice.Price, sizeof(notice.Price));
    const int64_t quantity = AsciiToInt64(notice.Quantity, sizeof(notice.Quantity)) / divisor;
    snprintf(event.Quantity, sizeof(event.Quantity), "%15lld", static_cast<long long>(quantity));
    return event;
}

void OrderList::BuildRow(OrderRow& row, const OrderEvent& event) {
    memset(&row, ' ', sizeof(row));
    PutText(row.Time, sizeof(row.Time), event.Time);
    PutText(row.DisplayText, sizeof(row.DisplayText), event.DisplayText);
    PutText(row.Code, sizeof(row.Code), event.Code);
    if (event.Side == '1') {
        memcpy(row.SideTag, "2 ", sizeof(row.SideTag));
        row.SideFlag = '1';
    } else if (event.Side == '2') {
        memcpy(row.SideTag, "4 ", sizeof(row.SideTag));
        row.SideFlag = '0';
    } else {
        row.SideFlag = event.Side;
    }
    row.BoardFlag = event.BoardFlag;
    PutText(row.BoardName, sizeof(row.BoardName), event.BoardName);
    PutText(row.OrderPrice, sizeof(row.OrderPrice), event.Price);
    memcpy(row.OrderQty, event.Quantity, sizeof(row.OrderQty));
    PutText(row.UserId, sizeof(row.UserId), event.UserId);
    PutText(row.OrderNo, sizeof(row.OrderNo), event.OrderNo);
    row.ChannelMark = event.ChannelMark;
    PutStatus(row, event.StatusWord);
}

// ------------------------------------------------------------------ rows

ListedOrder* OrderList::FindRow(const char* orderNo) const {
    const long number = atol(orderNo);
    for (ListedOrder* order : m_Rows) {
        if (AsciiToLong(order->Row.OrderNo, sizeof(order->Row.OrderNo)) == number) {
            return order;
        }
    }
    return nullptr;
}

int OrderList::IndexOf(const ListedOrder* wanted) const {
    int index = 0;
    for (const ListedOrder* order : m_Rows) {
        if (order == wanted) {
            return index;
        }
        ++index;
    }
    return -1;
}

ListedOrder* OrderList::AddRowAtTop() {
    auto* order = new ListedOrder;
    order->Mark = kNewRow;
    m_Rows.push_front(order);
    return order;
}

void OrderList::DrainPending(const char* orderNo) {
    const long number = atol(orderNo);
    auto place = m_Pending.begin();
    while (place != m_Pending.end()) {
        OrderEvent* event = *place;
        if (atol(event->OrderNo) == number) {
            ApplyEvent(*event);
            delete event;
            place = m_Pending.erase(place);
        } else {
            ++place;
        }
    }
}

// ------------------------------------------------------------------ messages

int OrderList::MessageLength(int rows) {
    return static_cast<int>(sizeof(OrderMessage) - sizeof(RequestTag)) +
           rows * static_cast<int>(sizeof(OrderRow));
}

// The repeat head counts the control record as a row.
char* OrderList::NewMessage(char operation, int index, char action, int rows) const {
    char* buffer = NewRowsBuffer(m_Tag, offsetof(OrderMessage, Repeat), rows + 1, sizeof(OrderRow));
    auto* message = reinterpret_cast<OrderMessage*>(buffer);
    message->Control.Operation = operation;
    LongToAscii(index, message->Control.Index, sizeof(message->Control.Index));
    message->Control.Action = action;
    return buffer;
}

void OrderList::SendRows(char operation, int index, char action) {
    const int wanted = action == kNewRows ? kNewRow : kChangedRow;
    int count = 0;
    for (const ListedOrder* order : m_Rows) {
        if (order->Mark == wanted) {
            ++count;
        }
    }
    if (count == 0 && operation == kUpdateRows) {
        return;
    }
    char* buffer = NewMessage(operation, index, action, count);
    char* place = buffer + sizeof(OrderMessage);
    for (ListedOrder* order : m_Rows) {
        if (order->Mark == wanted) {
            memcpy(place, &order->Row, sizeof(order->Row));
            place += sizeof(order->Row);
            order->Mark = kUnmarked;
        }
    }
    WriteLog(buffer, MessageLength(count));
    PostToView(buffer, MessageLength(count));
}

// ------------------------------------------------------------------ lists that begin with the acceptance

int64_t OrderList::DivisorOf(const OrderPacket& notice) {
    const bool wholeUnits =
        strncmp(notice.BoardName, "NG", 2) == 0 || strncmp(notice.BoardName, "ADV", 3) == 0;
    return wholeUnits ? 1 : 100;
}

void OrderList::ApplyNotice(const OrderPacket& notice, OrderEvent& event) {
    if (notice.NoticeKind == '2' && notice.OrderState == '0') {
        event.StatusWord = "";
        if (notice.OrderAction == '1') {
            event.EventCode = '1';
            event.StatusWord = "Open";
        } else if (notice.OrderAction == '2') {
            event.EventCode = '2';
            event.StatusWord = kAmendUnconfirmedWord;
        } else if (notice.OrderAction == '3') {
            event.EventCode = '3';
            event.StatusWord = kCancelUnconfirmedWord;
        }
        ApplyAcceptance(event);
        DrainPending(event.OrderNo);
        return;
    }
    if (notice.NoticeKind == '2' && notice.OrderState == '1') {
        event.EventCode = '1';
    } else if (notice.NoticeKind == '2' && notice.OrderState == '2') {
        if (notice.OrderAction == '2' || notice.OrderAction == '3') {
            event.EventCode = notice.OrderAction;
        } else if (notice.OrderAction == '4') {
            event.EventCode = '5';
        }
    }
    if (ApplyEvent(event) == 0) {
        m_Pending.push_back(new OrderEvent(event));
    }
}

void OrderList::InsertRow(const OrderEvent& event, bool isConfirmed) {
    ListedOrder* order = AddRowAtTop();
    BuildRow(order->Row, event);
    if (isConfirmed) {
        memcpy(order->Row.UnfilledQty, event.Quantity, sizeof(order->Row.UnfilledQty));
        PutStatus(order->Row, "Open");
    } else if (event.EventCode != '4') {
        memcpy(order->Row.UnfilledQty, event.Quantity, sizeof(order->Row.UnfilledQty));
    }
    SendRows(kUpdateRows, kNoSingleRow, kNewRows);
}

void OrderList::ReduceParent(const OrderEvent& event) {
    if (event.EventCode != '2' && event.EventCode != '3') {
        return;
    }
    ListedOrder* parent = FindRow(event.ParentOrderNo);
    if (parent == nullptr) {
        return;
    }
    const int64_t open = ReadQuantity(parent->Row.UnfilledQty) - atoll(event.Quantity);
    if (open < 1) {
        ClearQuantity(parent->Row.UnfilledQty);
    } else {
        WriteQuantity(parent->Row.UnfilledQty, open);
    }
    parent->Mark = kChangedRow;
}

void OrderList::ApplyKindRule(ListedOrder& order, const OrderEvent& event) {
    if (event.EventCode == '2') {
        PutStatus(order.Row, kAmendUnconfirmedWord);
    } else if (event.EventCode == '3') {
        PutStatus(order.Row, kCancelUnconfirmedWord);
    } else {
        PutStatus(order.Row, kAcceptedWord);
    }
    order.Mark = kChangedRow;
}

}  // namespace plain
