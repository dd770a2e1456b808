// The order list in its plain form: rows stay to the end and get a final word.
#include <algorithm>
#include <cstdlib>

#include "bench/plain/factories.h"
#include "bench/plain/order_list.h"
#include "layouts/RSORDE21.h"

namespace plain {

class CRSORDE21 : public OrderList {
public:
    explicit CRSORDE21(HWND window) : OrderList(window) {
        SetSlot(OrderPacket::kType, sizeof(OrderPacket), &CRSORDE21::OnOrderPacket);
    }

    int Init(const char* buffer) override {
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        // The last byte of the head may be missing where no rows follow.
        OrderListInit init;
        const int shortest = sizeof(init) - 1;
        if (m_nInitRemain < shortest) {
            return 0;
        }
        ReadBytes(&init, std::min<int>(m_nInitRemain, sizeof(init)));
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
        if (BeginsWith(status, kAmendSyllable) || BeginsWith(status, kFillWord) ||
            BeginsWith(status, kCancelSyllable) || status == kAcceptanceRefusedWord) {
            return;
        }
        ApplyKindRule(*own, event);
    }

    int ApplyEvent(const OrderEvent& event) override {
        ListedOrder* own = FindRow(event.OrderNo);
        ListedOrder* parent = FindRow(event.ParentOrderNo);
        if (own == nullptr) {
            if (event.EventCode == '2') {
                AmendWithoutRow(parent, event);
            } else if (event.EventCode == '3' && parent != nullptr) {
                CancelWithoutRow(parent);
            }
            return 0;
        }
        own->Row.BoardFlag = event.BoardFlag;
        PutText(own->Row.BoardName, sizeof(own->Row.BoardName), event.BoardName);
        if (event.EventCode == '1') {
            Fill(own, event);
        } else if (event.EventCode == '2') {
            ConfirmAmendment(own, parent, event);
        } else if (event.EventCode == '3') {
            ConfirmCancellation(own, parent);
        } else if (event.EventCode == '5') {
            PutStatus(own->Row, kCancelConfirmedWord);
            ClearQuantity(own->Row.UnfilledQty);
            own->Mark = kChangedRow;
        }
        return 1;
    }

private:
    int OnOrderPacket(const char* payload) {
        const auto& notice = *reinterpret_cast<const OrderPacket*>(payload);
        if (IsRepeated(notice) || !IsOurs(notice) ||
            strncmp(notice.UserField, m_UserField, sizeof(m_UserField)) != 0 ||
            strncmp(notice.RecordKind, "01", sizeof(notice.RecordKind)) != 0) {
            return 0;
        }
        OrderEvent event = MakeEvent(notice, DivisorOf(notice));
        if (notice.NoticeKind == '2' && notice.ResultFlag == '1') {
            event.EventCode = '4';
            event.StatusWord = "Reject";
            if (notice.OrderState == '1' || notice.OrderState == '2') {
                ApplyRefusal(event);
            }
        } else if (notice.ResultFlag == '0') {
            ApplyNotice(notice, event);
        }
        PostListChanged();
        return 1;
    }

    void ApplyRefusal(const OrderEvent& event) {
        ListedOrder* own = FindRow(event.OrderNo);
        if (own == nullptr) {
            InsertRow(event, false);
            return;
        }
        PutStatus(own->Row, "Reject");
        own->Mark = kChangedRow;
    }

    static void Fill(ListedOrder* own, const OrderEvent& event) {
        OrderRow& row = own->Row;
        const int64_t quantity = atoll(event.Quantity);
        const int64_t filled = ReadQuantity(row.FilledQty) + quantity;
        const int64_t open = ReadQuantity(row.UnfilledQty) - quantity;
        WriteQuantity(row.FilledQty, filled);
        PutText(row.FillPrice, sizeof(row.FillPrice), event.Price);
        WriteQuantity(row.UnfilledQty, open > 0 ? open : 0);
        PutStatus(row, WordAfterFill(filled, open));
        if (ReadQuantity(row.OrderQty) < filled) {
            WriteQuantity(row.FilledQty, ReadQuantity(row.OrderQty));
        }
        own->Mark = kChangedRow;
    }

    static const char* ClosingWord(const OrderRow& parent, const char* word) {
        const int64_t filled = ReadQuantity(parent.FilledQty);
        return filled != 0 && filled != ReadQuantity(parent.OrderQty) ? "Partial" : word;
    }

    void AmendWithoutRow(ListedOrder* parent, const OrderEvent& event) {
        InsertRow(event, true);
        if (parent == nullptr) {
            return;
        }
        const int64_t open = ReadQuantity(parent->Row.UnfilledQty) - atoll(event.Quantity);
        if (open < 1) {
            ClearQuantity(parent->Row.UnfilledQty);
        } else {
            WriteQuantity(parent->Row.UnfilledQty, open);
        }
        PutStatus(parent->Row, ClosingWord(parent->Row, "Amended"));
        parent->Mark = kChangedRow;
    }

    void CancelWithoutRow(ListedOrder* parent) {
        WriteQuantity(parent->Row.UnfilledQty, 0);
        PutStatus(parent->Row, ClosingWord(parent->Row, "Withdrawn"));
        parent->Mark = kChangedRow;
        SendRows(kUpdateRows, IndexOf(parent), kChangedRows);
    }

    static const char* ParentWord(const OrderRow& parent, int64_t open, const char* word) {
        const int64_t filled = ReadQuantity(parent.FilledQty);
        if (filled == 0) {
            return StatusOf(parent) == kBeingSentWord ? word : "";
        }
        if (filled > 0 && open > 0) {
            return kBeingFilledWord;
        }
        if (filled > 0 && open == 0) {
            return kFillingCompleteWord;
        }
        return "";
    }

    static void ConfirmAmendment(ListedOrder* own, ListedOrder* parent, const OrderEvent& event) {
        const std::string status = StatusOf(own->Row);
        if (parent == nullptr || BeginsWith(status, kAmendConfirmedWord) ||
            BeginsWith(status, kCancelConfirmedWord)) {
            return;
        }
        memcpy(own->Row.UnfilledQty, event.Quantity, sizeof(own->Row.UnfilledQty));
        const int64_t open = ReadQuantity(parent->Row.UnfilledQty);
        PutStatus(parent->Row, ParentWord(parent->Row, open, kAmendUnconfirmedWord));
        PutStatus(own->Row, "Open");
        parent->Mark = kChangedRow;
        own->Mark = kChangedRow;
    }

    static void ConfirmCancellation(ListedOrder* own, ListedOrder* parent) {
        if (parent == nullptr || BeginsWith(StatusOf(own->Row), kCancelConfirmedWord)) {
            return;
        }
        const int64_t open = ReadQuantity(own->Row.UnfilledQty);
        PutStatus(parent->Row, ParentWord(parent->Row, open, kCancelUnconfirmedWord));
        PutStatus(own->Row, kCancelConfirmedWord);
        parent->Mark = kChangedRow;
        own->Mark = kChangedRow;
    }

    char m_UserField[sizeof(OrderListInit::UserField)] = {};
};

Decoder* NewCRSORDE21(HWND window) {
    return new CRSORDE21(window);
}

}  // namespace plain
