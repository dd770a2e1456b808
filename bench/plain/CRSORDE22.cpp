// The filtered order list in its plain form: orders from their sending on, and what of them the view gets.
#include <cstdlib>

#include "bench/plain/factories.h"
#include "bench/plain/order_list.h"
#include "host/services.h"
#include "layouts/RSORDE22.h"

namespace plain {

class CRSORDE22 : public OrderList {
public:
    explicit CRSORDE22(HWND window) : OrderList(window) {
        SetSlot(OrderPacket::kType, sizeof(OrderPacket), &CRSORDE22::OnOrderPacket);
    }

    int Init(const char* buffer) override {
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        ClearOrders();
        FilteredOrdersInit init;
        if (!ReadBytes(&init, sizeof(init))) {
            return 0;
        }
        const int count = AsciiToLong(init.Repeat.Count, sizeof(init.Repeat.Count));
        if (count < 0) {
            return 0;
        }
        m_Filter = init;
        if (count == 0) {
            return 1;
        }
        if (!ReadRows(count)) {
            return 0;
        }
        SendRows(kUpdateRows, kNoSingleRow, kAllRows);
        return 1;
    }

protected:
    int ApplyEvent(const OrderEvent& event) override {
        ListedOrder* own = FindRow(event.OrderNo);
        ListedOrder* parent = FindRow(event.ParentOrderNo);
        if (own != nullptr) {
            ApplyToOwn(own, parent, event);
            return 1;
        }
        if (parent != nullptr) {
            ApplyToParent(parent, event);
            return 1;
        }
        ApplySending(event);
        return event.EventCode == '1' ? 0 : 1;
    }

    void SendRows(char operation, int index, char action) override {
        int wanted = kChangedRow;
        int count = 0;
        for (ListedOrder* order : m_Rows) {
            const bool wordPasses = WordPasses(order->Row);
            const bool isShown = order->Row.ShownMark == 's';
            const char filter = m_Filter.StatusFilter;
            if (!wordPasses && !(isShown && (filter == '1' || filter == '4'))) {
                order->Mark = kUnmarked;
                continue;
            }
            const bool promotes = filter == '2' || filter == '3' || filter == '4';
            if (promotes && wordPasses && !isShown && order->Mark != kUnmarked && action == kChangedRows) {
                order->Mark = kNewRow;
                action = kNewRows;
            }
            if (action == kAllRows) {
                order->Mark = kChangedRow;
                ++count;
            } else if (action == kNewRows) {
                wanted = kNewRow;
                if (order->Mark == kNewRow) {
                    ++count;
                }
            } else if (order->Mark == kChangedRow) {
                ++count;
            }
        }
        if (count > 0) {
            SendMarked(operation, index, action, wanted, count);
        }
        if (m_Filter.StatusFilter != '0' && operation == kUpdateRows) {
            PruneShown();
        }
    }

private:
    // ---- filters

    bool PassesFilters(const OrderPacket& notice) const {
        const std::string code(m_Filter.CodeFilter, 4);
        if (code != "    " && code != "All " && code != "ALL " &&
            memcmp(m_Filter.CodeFilter, notice.Code, sizeof(notice.Code)) != 0) {
            return false;
        }
        if (std::string(m_Filter.GroupFilter, 6) != "      " &&
            memcmp(m_Filter.GroupFilter, notice.GroupCode, sizeof(notice.GroupCode)) != 0) {
            return false;
        }
        const std::string board(m_Filter.BoardFilter, 3);
        if (board != "   " && board != "All" && board != "ALL") {
            char text[sizeof(notice.BoardName) + 1] = {};
            memcpy(text, notice.BoardName, sizeof(notice.BoardName));
            std::string name = Trimmed(text, static_cast<int>(strlen(text)));
            const size_t advertised = name.find("ADV");
            if (advertised != std::string::npos) {
                name.replace(advertised, 3, "NG");
            }
            if (name.compare(0, name.size(), m_Filter.BoardFilter, name.size()) != 0) {
                return false;
            }
        }
        if (m_Filter.SideFilter != ' ' && m_Filter.SideFilter != '2') {
            if (notice.Side == '1' && m_Filter.SideFilter != '1') {
                return false;
            }
            if (notice.Side == '2' && m_Filter.SideFilter != '0') {
                return false;
            }
        }
        return strncmp(notice.RecordKind, "01", sizeof(notice.RecordKind)) == 0;
    }

    bool WordPasses(const OrderRow& row) const {
        const std::string status(row.Status, sizeof(row.Status));
        switch (m_Filter.StatusFilter) {
            case '1':
                return BeginsWith(status, "Sending") || BeginsWith(status, "Open") ||
                       BeginsWith(status, "Partial");
            case '2':
                return BeginsWith(status, "Done");
            case '3':
                return BeginsWith(status, "Withdraw");
            case '4':
                return BeginsWith(status, "Partial");
            default:
                return true;
        }
    }

    // ---- notices

    static int64_t LotDivisor(const OrderPacket& notice) {
        if (Trimmed(notice.LotSize, sizeof(notice.LotSize)).empty()) {
            return 100;
        }
        const int lot = AsciiToLong(notice.LotSize, sizeof(notice.LotSize));
        return lot == 0 ? 1 : lot;
    }

    static char ChannelMarkOf(const OrderPacket& notice) {
        const std::string channel(notice.ChannelCode, sizeof(notice.ChannelCode));
        if (channel == "33") {
            return 'H';
        }
        if (channel == "M1" || channel == "M2" || channel == "M3") {
            return 'M';
        }
        if (channel == "00") {
            return 'D';
        }
        if (channel == "03") {
            return CQelData21::GetMenuGrade()[0] == '1' && notice.UserId[0] == '3' ? 'W' : 'D';
        }
        if (channel == "21") {
            return 'A';
        }
        if (channel == "T1") {
            return 'T';
        }
        return 'H';
    }

    int OnOrderPacket(const char* payload) {
        const auto& notice = *reinterpret_cast<const OrderPacket*>(payload);
        if (IsRepeated(notice) || !IsOurs(notice) ||
            strncmp(notice.UserField, m_Filter.UserField, sizeof(notice.UserField)) != 0 ||
            !PassesFilters(notice)) {
            return 0;
        }
        OrderEvent event = MakeEvent(notice, LotDivisor(notice));
        event.ChannelMark = ChannelMarkOf(notice);
        if (notice.NoticeKind == '1' && notice.ResultFlag == '0') {
            TakeSending(notice, event);
        } else if (notice.NoticeKind == '2' && notice.ResultFlag == '1') {
            event.EventCode = '4';
            event.StatusWord = "Reject";
            ApplyRefusal(event);
        } else if (notice.ResultFlag == '0') {
            TakeAnswer(notice, event);
        }
        return 1;
    }

    void TakeSending(const OrderPacket& notice, OrderEvent& event) {
        event.IsSending = true;
        if (notice.OrderAction == '1') {
            event.EventCode = '1';
            event.StatusWord = "Sending";
        } else if (notice.OrderAction == '2') {
            event.EventCode = '2';
            event.StatusWord = "Amending";
        } else if (notice.OrderAction == '3') {
            event.EventCode = '3';
            event.StatusWord = "Withdrawing";
        }
        ApplySending(event);
        DrainPending(event.OrderNo);
    }

    void TakeAnswer(const OrderPacket& notice, OrderEvent& event) {
        if (notice.NoticeKind == '2') {
            if (notice.OrderState == '1') {
                event.EventCode = '1';
            } else if (notice.OrderState == '0' && notice.OrderAction == '1') {
                event.EventCode = '0';
                event.StatusWord = "Open";
            } else if (notice.OrderState == '2' && notice.OrderAction == '2') {
                event.EventCode = '2';
                event.StatusWord = "Amended";
            } else if (notice.OrderState == '2' && notice.OrderAction == '3') {
                event.EventCode = '3';
                event.StatusWord = "Withdrawn";
            } else if (notice.OrderState == '2' && notice.OrderAction == '4') {
                event.EventCode = '5';
            }
        }
        if (ApplyEvent(event) == 0) {
            m_Pending.push_back(new OrderEvent(event));
        }
    }

    void ApplySending(const OrderEvent& event) {
        if (FindRow(event.ParentOrderNo) == nullptr) {
            Insert(event);
        }
    }

    void ApplyRefusal(const OrderEvent& event) {
        ListedOrder* own = FindRow(event.OrderNo);
        if (own == nullptr) {
            Insert(event);
        } else {
            Close(own, "Reject");
        }
    }

    static bool IsInTransit(const OrderRow& row) {
        const std::string status(row.Status, strnlen(row.Status, sizeof(row.Status)));
        return status.find("ing") != std::string::npos;
    }

    static void SetStatus(ListedOrder* order, const char* word) {
        PutStatus(order->Row, word);
        order->Mark = kChangedRow;
    }

    static void Close(ListedOrder* order, const char* word) {
        WriteQuantity(order->Row.UnfilledQty, 0);
        SetStatus(order, word);
    }

    static void TakeDisplayText(ListedOrder* order, const OrderEvent& event) {
        PutText(order->Row.DisplayText, sizeof(order->Row.DisplayText), event.DisplayText);
    }

    static void ApplyToOwn(ListedOrder* own, ListedOrder* parent, const OrderEvent& event) {
        const bool inTransit = IsInTransit(own->Row);
        if (event.EventCode == '0' && inTransit) {
            TakeDisplayText(own, event);
            own->Row.ChannelMark = event.ChannelMark;
            SetStatus(own, "Open");
        } else if (event.EventCode == '1') {
            Fill(own, event);
        } else if (event.EventCode == '2') {
            if (inTransit) {
                TakeDisplayText(own, event);
                SetStatus(own, "Open");
            }
            if (parent != nullptr) {
                SetStatus(parent, "Amended");
            }
        } else if (event.EventCode == '3' && inTransit) {
            SetStatus(own, "Withdrawn");
        }
    }

    void ApplyToParent(ListedOrder* parent, const OrderEvent& event) {
        const std::string status = StatusOf(parent->Row);
        const bool isOver = status == "Done" || status == "Amended" || status == "Withdrawn";
        if (event.EventCode == '0' && !isOver && status != "Open") {
            TakeDisplayText(parent, event);
            parent->Row.ChannelMark = event.ChannelMark;
            SetStatus(parent, "Open");
        } else if (event.EventCode == '1') {
            Fill(parent, event);
        } else if (event.EventCode == '2' && !isOver) {
            Close(parent, "Amended");
            Insert(event);
        } else if (event.EventCode == '3' && status != "Withdrawn") {
            Close(parent, "Withdrawn");
        }
    }

    static void Fill(ListedOrder* order, const OrderEvent& event) {
        OrderRow& row = order->Row;
        const int64_t quantity = atoll(event.Quantity);
        const int64_t before = ReadQuantity(row.FilledQty);
        const int64_t filled = before + quantity;
        const int64_t open = ReadQuantity(row.UnfilledQty) - quantity;
        WriteQuantity(row.FilledQty, filled);
        if (filled != 0) {
            const double average =
                (AsciiToDouble(row.FillPrice, sizeof(row.FillPrice)) * static_cast<double>(before) +
                 atof(event.Price) * static_cast<double>(quantity)) /
                static_cast<double>(filled);
            DoubleToAscii(average, row.FillPrice, sizeof(row.FillPrice), 0);
        }
        WriteQuantity(row.UnfilledQty, open > 0 ? open : 0);
        if (ReadQuantity(row.OrderQty) < filled) {
            WriteQuantity(row.FilledQty, ReadQuantity(row.OrderQty));
        }
        SetStatus(order, WordAfterFill(filled, open));
    }

    void Insert(const OrderEvent& event) {
        OrderRow& row = AddRowAtTop()->Row;
        BuildRow(row, event);
        if (event.EventCode == '1' && !event.IsSending) {
            memset(row.OrderPrice, ' ', sizeof(row.OrderPrice));
            memset(row.OrderQty, ' ', sizeof(row.OrderQty));
            PutText(row.FillPrice, sizeof(row.FillPrice), event.Price);
            memcpy(row.FilledQty, event.Quantity, sizeof(row.FilledQty));
            PutStatus(row, "Partial");
        } else if (event.EventCode == '0' || event.EventCode == '1' || event.EventCode == '2') {
            memcpy(row.UnfilledQty, event.Quantity, sizeof(row.UnfilledQty));
            if (event.EventCode == '2' && !event.IsSending) {
                PutStatus(row, "Open");
            }
        }
        SendRows(kUpdateRows, kNoSingleRow, kNewRows);
    }

    // ---- the view

    void SendMarked(char operation, int index, char action, int wanted, int count) {
        char* buffer = NewMessage(operation, index, action, count);
        int copied = 0;
        for (ListedOrder* order : m_Rows) {
            if (order->Mark == wanted && copied < count) {
                order->Row.ShownMark = ' ';
                memcpy(buffer + sizeof(OrderMessage) + static_cast<size_t>(copied) * sizeof(OrderRow),
                       &order->Row, sizeof(order->Row));
                order->Row.ShownMark = 's';
                order->Mark = kUnmarked;
                ++copied;
            }
        }
        auto* message = reinterpret_cast<OrderMessage*>(buffer);
        LongToAscii(copied + 1, message->Repeat.Count, sizeof(message->Repeat.Count));
        PostToView(buffer, MessageLength(count));
    }

    // From the bottom, so that a deletion leaves the places of the rows still to come as they are.
    void PruneShown() {
        const char filter = m_Filter.StatusFilter;
        int place = 0;
        for (const ListedOrder* order : m_Rows) {
            if (order->Row.ShownMark == 's') {
                ++place;
            }
        }
        for (auto at = m_Rows.rbegin(); at != m_Rows.rend() && place > 0; ++at) {
            ListedOrder* order = *at;
            if (order->Row.ShownMark != 's') {
                continue;
            }
            --place;
            if ((filter == '1' || filter == '4') && !WordPasses(order->Row)) {
                order->Row.ShownMark = ' ';
                PostToView(NewMessage(kDeleteRow, place, kChangedRows, 0), MessageLength(0));
            }
        }
    }

    FilteredOrdersInit m_Filter = {};
};

Decoder* NewCRSORDE22(HWND window) {
    return new CRSORDE22(window);
}

}  // namespace plain
