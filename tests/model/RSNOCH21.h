// Open orders.
#ifndef TICKMUX_TESTS_MODEL_RSNOCH21_H
#define TICKMUX_TESTS_MODEL_RSNOCH21_H

#include "tests/model/orders.h"
#include "tests/support/orders.h"

struct RSNOCH21 : Orders {
    using Orders::Orders;

    // How words begin, and how one ends.
    inline static const std::string kAmend = "\xC1\xA4", kFill = "\xC3\xBC\xB0\xE1", kCancel = "\xC3\xEB",
                                    kRefused = "\xB0\xC5\xBA\xCE";
    inline static const std::vector<Route> kRoutes = {{"2001", '1', "Open", Way::Accept},
                                                      {"2002", '2', kAmendUnconfirmedWord, Way::Accept},
                                                      {"2003", '3', kCancelUnconfirmedWord, Way::Accept},
                                                      {"200?", 0, "", Way::Accept},
                                                      {"201?", '1', "", Way::Apply},
                                                      {"2022", '2', "", Way::Apply},
                                                      {"2023", '3', "", Way::Apply},
                                                      {"2024", '5', "", Way::Apply},
                                                      {"?0??", 0, "", Way::Apply}};

    bool OnInit(const std::string& text) override { return TakeInquiry(text, 31, 7); }
    bool TakeInquiry(const std::string& text, std::size_t least, std::size_t keySize) {
        const int count = CountAt(text, 9, 2 + least);
        UserField = count < 0 ? UserField : text.substr(2, keySize);
        if (count > 0) {  // else the rows of an earlier inquiry stay
            Forget();
        }
        return count == 0 || (count > 0 && TakeRows(text, 33, count));
    }

    bool OnNotice(const OrderPacket& notice) override {
        // The key reaches one byte into the order number.
        if (!IsOfUser(notice) || Text(notice.UserField) + notice.OrderNo[0] != UserField) {
            return false;
        }
        BuildEvent(notice, Divisor(notice), kRoutes);
        return true;
    }
    static int64_t Divisor(const OrderPacket& notice) {
        const std::string board = Text(notice.BoardName);
        return board.starts_with("NG") || board.starts_with("ADV") ? 1 : 100;
    }

    void InsertRow(const OrderEvent& event, bool confirmed) {
        Order order = event.Columns;
        if (confirmed || event.EventCode != '4') {
            order.Put(kUnfilledQty, event.Quantity);
        }
        if (confirmed) {
            order.Put(kStatus, "Open");
        }
        InsertTop(order);
        SendMarked('U', -1, '2');
    }
    void RemoveRow(const OrderPtr& order) {
        const int64_t place = PlaceOf(order);
        List.erase(List.begin() + static_cast<std::ptrdiff_t>(place));
        SendMarked('D', place, '3');
    }
    void RemoveIfNothingOpen(const OrderPtr& order) {
        if (order != nullptr && PlaceOf(order) < std::ssize(List) && order->Number(kUnfilledQty) < 1) {
            RemoveRow(order);
        }
    }
    static void ClearUnfilled(Order& order) {
        order.Put(kUnfilledQty, std::string(13, ' ') + std::string(2, '\0'));
    }
    static void LowerUnfilled(Order& order, int64_t quantity) {
        const int64_t open = order.Number(kUnfilledQty) - quantity;
        open < 1 ? ClearUnfilled(order) : order.Put(kUnfilledQty, open);
        order.Mark = 1;
    }

    void Accept(const OrderEvent& event) override {
        if (const OrderPtr own = FindRow(event.OrderNo)) {
            AcceptAgain(own, event.EventCode);
            return;
        }
        InsertRow(event, false);
        const OrderPtr parent = FindRow(event.ParentOrderNo);
        if (parent != nullptr && (event.EventCode == '2' || event.EventCode == '3')) {
            LowerUnfilled(*parent, event.Quantity);
        }
    }
    virtual void AcceptAgain(const OrderPtr& own, char eventCode) {
        if (own->Begins(kAmend) || own->Begins(kFill)) {
            return;
        }
        const bool refused = !own->Begins(kCancel) && own->Get(kStatus).substr(4, 4) == kRefused;
        own->Begins(kCancelConfirmedWord) || refused ? RemoveRow(own) : own->Become(KindWord(eventCode));
    }
    static std::string KindWord(char eventCode) {
        return eventCode == '2'   ? kAmendUnconfirmedWord
               : eventCode == '3' ? kCancelUnconfirmedWord
                                  : kAcceptedWord;
    }
    void ApplyRefusal(const OrderEvent& /*event*/) override {}

    bool ApplyEvent(const OrderEvent& event) override {
        const OrderPtr own = FindRow(event.OrderNo);
        const OrderPtr parent = FindRow(event.ParentOrderNo);
        const char code = event.EventCode;
        if (own == nullptr) {
            if (parent != nullptr && (code == '2' || code == '3')) {
                RemoveRow(parent);
            }
            if (code == '2') {
                InsertRow(event, true);
            }
        } else if (code == '1') {
            const int64_t open = own->Number(kUnfilledQty) - event.Quantity;
            MoveQuantities(*own, event.Quantity);
            own->Put(kFillPrice, event.Columns.Get(kOrderPrice));
            own->Mark = open < 1 ? 0 : 1;
            RemoveIfNothingOpen(own);
        } else if (code == '2' && !own->Begins(kAmendConfirmedWord)) {
            own->Put(kStatus, kAmendConfirmedWord);
            own->Put(kUnfilledQty, event.Quantity);
            RemoveIfNothingOpen(parent);
            own->Mark = 1;
        } else if ((code == '3' && !own->Begins(kCancelConfirmedWord)) || code == '5') {
            RemoveRow(own);
            RemoveIfNothingOpen(code == '3' ? parent : nullptr);
        }
        return own != nullptr;
    }

    void SendMarked(char operation, int64_t index, char action) {
        const Rows rows = TakeMarked(action == '2' ? 2 : 1);
        if (!rows.empty() || operation == 'D') {
            SendMessage(operation, index, action, rows, rows.size());
        }
    }
    void OnEndBatch() override { SendMarked('U', -1, '3'), Changed = false; }

    std::string UserField;
};

#endif
