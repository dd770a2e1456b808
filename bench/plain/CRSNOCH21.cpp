// Open orders in their plain form: a row leaves the list with its order's end, and every message is logged.
#include <cstdio>
#include <vector>

#include "bench/plain/factories.h"
#include "bench/plain/order_list.h"
#include "host/services.h"
#include "layouts/RSNOCH21.h"

namespace plain {

class CRSNOCH21 : public OrderList {
public:
    explicit CRSNOCH21(HWND window) : OrderList(window) {
        SetSlot(OrderPacket::kType, sizeof(OrderPacket), &CRSNOCH21::OnOrderPacket);
    }

    int Init(const char* buffer) override {
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        OpenOrdersInit init;
        if (!ReadBytes(&init, sizeof(init))) {
            return 0;
        }
        const int count = AsciiToLong(init.Repeat.Count, sizeof(init.Repeat.Count));
        if (count < 0) {
            return 0;
        }
        memcpy(m_UserField, init.UserField, sizeof(m_UserField));
        return count == 0 || ReadRows(count) ? 1 : 0;
    }

protected:
    void ApplyAcceptance(const OrderEvent& event) override {
        ListedOrder* own = FindRow(event.OrderNo);
        if (own == nullptr) {
            InsertRow(event, false);
            ReduceParent(event);
            return;
        }
        const std::string status = StatusOf(own->Row);
        if (BeginsWith(status, kAmendSyllable) || BeginsWith(status, kFillWord)) {
            return;
        }
        const bool isRefused = status.size() >= 8 && status.compare(4, 4, kRefusedWord) == 0;
        if (BeginsWith(status, kCancelConfirmedWord) || (isRefused && !BeginsWith(status, kCancelSyllable))) {
            RemoveRow(own);
        } else {
            ApplyKindRule(*own, event);
        }
    }

    int ApplyEvent(const OrderEvent& event) override {
        ListedOrder* own = FindRow(event.OrderNo);
        if (own == nullptr) {
            if (event.EventCode == '2' || event.EventCode == '3') {
                ListedOrder* parent = FindRow(event.ParentOrderNo);
                if (parent != nullptr) {
                    RemoveRow(parent);
                }
            }
            if (event.EventCode == '2') {
                InsertRow(event, true);
            }
            return 0;
        }
        if (event.EventCode == '1') {
            Fill(own, event);
        } else if (event.EventCode == '2') {
            ConfirmAmendment(own, event);
        } else if (event.EventCode == '3') {
            if (!BeginsWith(StatusOf(own->Row), kCancelConfirmedWord)) {
                RemoveRow(own);
                RemoveParentIfDone(event);
            }
        } else if (event.EventCode == '5') {
            RemoveRow(own);
        }
        return 1;
    }

    void WriteLog(const char* buffer, int length) override {
        std::vector<char> text(static_cast<size_t>(length) + 1);
        snprintf(text.data(), text.size(), "%*.*s", length, length, buffer);

        CreateDirectoryA("C:\\logs", nullptr);
        SYSTEMTIME now;
        GetSystemTime(&now);
        char head[80];
        snprintf(head, sizeof(head), "[%02d:%02d:%02d:%03d]    [EndRTMUnpack\xBF\xA1\xBC\xAD]", now.wHour + 9,
                 now.wMinute, now.wSecond, now.wMilliseconds);

        CFile file;
        if (file.Open("c:\\logs\\RSNOCH21.txt",
                      CFile::modeWrite | CFile::modeCreate | CFile::modeNoTruncate) == FALSE) {
            return;
        }
        file.SeekToEnd();
        file.Write(head, static_cast<UINT>(strlen(head)));
        const char* rest = text.data();
        if (length > 500) {
            while (length >= 500) {
                file.Write(rest, 500);
                file.Write("\r\n", 2);
                rest += 500;
                length -= 500;
            }
        }
        file.Write(rest, static_cast<UINT>(length));
        file.Write("\r\n", 2);
        file.Close();
    }

private:
    int OnOrderPacket(const char* payload) {
        const auto& notice = *reinterpret_cast<const OrderPacket*>(payload);
        // One byte more than the field has, so that the order number's first counts too.
        if (!IsOurs(notice) ||
            strncmp(payload + offsetof(OrderPacket, UserField), m_UserField, sizeof(m_UserField)) != 0 ||
            strncmp(notice.RecordKind, "01", sizeof(notice.RecordKind)) != 0) {
            return 0;
        }
        if (notice.ResultFlag == '0') {
            OrderEvent event = MakeEvent(notice, DivisorOf(notice));
            ApplyNotice(notice, event);
        }
        PostListChanged();
        return 1;
    }

    void Fill(ListedOrder* own, const OrderEvent& event) {
        OrderRow& row = own->Row;
        const int64_t quantity = atoll(event.Quantity);
        const int64_t filled = ReadQuantity(row.FilledQty) + quantity;
        const int64_t open = ReadQuantity(row.UnfilledQty) - quantity;
        WriteQuantity(row.FilledQty, filled);
        PutText(row.FillPrice, sizeof(row.FillPrice), event.Price);
        if (open < 1) {
            RemoveRow(own);
            return;
        }
        WriteQuantity(row.UnfilledQty, open);
        PutStatus(row, WordAfterFill(filled, open));
        if (ReadQuantity(row.OrderQty) < filled) {
            WriteQuantity(row.FilledQty, ReadQuantity(row.OrderQty));
        }
        own->Mark = kChangedRow;
    }

    void ConfirmAmendment(ListedOrder* own, const OrderEvent& event) {
        if (BeginsWith(StatusOf(own->Row), kAmendConfirmedWord)) {
            return;
        }
        PutStatus(own->Row, kAmendConfirmedWord);
        memcpy(own->Row.UnfilledQty, event.Quantity, sizeof(own->Row.UnfilledQty));
        RemoveParentIfDone(event);
        own = FindRow(event.OrderNo);  // an order that is its own parent may be gone
        if (own != nullptr) {
            own->Mark = kChangedRow;
        }
    }

    void RemoveParentIfDone(const OrderEvent& event) {
        ListedOrder* parent = FindRow(event.ParentOrderNo);
        if (parent != nullptr && ReadQuantity(parent->Row.UnfilledQty) < 1) {
            RemoveRow(parent);
        }
    }

    void RemoveRow(ListedOrder* order) {
        const int index = IndexOf(order);
        m_Rows.remove(order);
        delete order;
        SendRows(kDeleteRow, index, kChangedRows);
    }

    char m_UserField[sizeof(OpenOrdersInit::UserField)] = {};
};

Decoder* NewCRSNOCH21(HWND window) {
    return new CRSNOCH21(window);
}

}  // namespace plain
