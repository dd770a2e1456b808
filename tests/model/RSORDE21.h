// The order list: open orders of which none leaves, repeated notices are dropped, and refusals count.
#ifndef TICKMUX_TESTS_MODEL_RSORDE21_H
#define TICKMUX_TESTS_MODEL_RSORDE21_H

#include "tests/model/RSNOCH21.h"

struct RSORDE21 : RSNOCH21 {
    using RSNOCH21::RSNOCH21;

    bool OnInit(const std::string& text) override { return TakeInquiry(text, 30, 6); }

    bool OnNotice(const OrderPacket& notice) override {
        if (IsRepeated(notice) || !IsOfUser(notice) || Text(notice.UserField) != UserField) {
            return false;
        }
        std::vector<Route> routes = {{"211?", '4', "Reject", Way::Refuse},
                                     {"212?", '4', "Reject", Way::Refuse}};
        routes.insert(routes.end(), kRoutes.begin(), kRoutes.end());
        BuildEvent(notice, Divisor(notice), routes);
        return true;
    }

    void ApplyRefusal(const OrderEvent& event) override {
        const OrderPtr own = FindRow(event.OrderNo);
        own != nullptr ? own->Become("Reject") : InsertRow(event, false);
    }
    void AcceptAgain(const OrderPtr& own, char eventCode) override {
        if (!own->Begins(kAmend) && !own->Begins(kFill) && !own->Begins(kCancel) &&
            !own->Is(kAcceptanceRefusedWord)) {
            own->Become(KindWord(eventCode));
        }
    }

    bool ApplyEvent(const OrderEvent& event) override {
        const OrderPtr own = FindRow(event.OrderNo);
        const OrderPtr parent = FindRow(event.ParentOrderNo);
        const char code = event.EventCode;
        if (own == nullptr) {
            ApplyWithoutRow(event, parent);
            return false;
        }
        own->Put(kBoard, event.Columns.Get(kBoard));
        const bool cancelled = own->Begins(kCancelConfirmedWord);
        if (code == '1') {
            MoveQuantities(*own, event.Quantity);
            own->Put(kFillPrice, event.Columns.Get(kOrderPrice));
        } else if (code == '2' && parent != nullptr && !own->Begins(kAmendConfirmedWord) && !cancelled) {
            own->Put(kUnfilledQty, event.Quantity);
            parent->Become(ParentWord(*parent, parent->Number(kUnfilledQty), kAmendUnconfirmedWord));
            own->Become("Open");
        } else if (code == '3' && parent != nullptr && !cancelled) {
            parent->Become(ParentWord(*parent, own->Number(kUnfilledQty), kCancelUnconfirmedWord));
            own->Become(kCancelConfirmedWord);
        } else if (code == '5') {
            own->Become(kCancelConfirmedWord);
            ClearUnfilled(*own);
        }
        return true;
    }
    static std::string ParentWord(const Order& parent, int64_t open, const std::string& waiting) {
        const int64_t filled = parent.Number(kFilledQty);
        if (filled == 0) {
            return parent.Is(kBeingSentWord) ? waiting : "";
        }
        return filled < 0 || open < 0 ? "" : open > 0 ? kBeingFilledWord : kFillingCompleteWord;
    }

    void ApplyWithoutRow(const OrderEvent& event, const OrderPtr& parent) {
        if (event.EventCode == '2') {
            InsertRow(event, true);
        }
        if (parent == nullptr || (event.EventCode != '2' && event.EventCode != '3')) {
            return;
        }
        const int64_t filled = parent->Number(kFilledQty);
        const bool partly = filled != 0 && filled != parent->Number(kOrderQty);
        parent->Become(partly ? "Partial" : event.EventCode == '2' ? "Amended" : "Withdrawn");
        if (event.EventCode == '2') {
            LowerUnfilled(*parent, event.Quantity);
        } else {
            parent->Put(kUnfilledQty, 0);
            SendMarked('U', PlaceOf(parent), '3');
        }
    }
};

#endif
