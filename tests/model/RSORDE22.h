// The filtered order list: orders from their sending on, and what of them the view has.
#ifndef TICKMUX_TESTS_MODEL_RSORDE22_H
#define TICKMUX_TESTS_MODEL_RSORDE22_H

#include "tests/model/orders.h"

struct RSORDE22 : Orders {
    using Orders::Orders;

    bool OnInit(const std::string& text) override {
        Forget();
        const int count = CountAt(text, 67, 91);
        Inquiry = count < 0 ? Inquiry : text.substr(0, 91);
        if (count > 0 && TakeRows(text, 91, count)) {
            SendChanges('0');
        }
        return count == 0 || !List.empty();
    }

    bool OnNotice(const OrderPacket& notice) override {
        static const std::vector<Route> routes = {{"10?1", '1', "Sending", Way::Accept},
                                                  {"10?2", '2', "Amending", Way::Accept},
                                                  {"10?3", '3', "Withdrawing", Way::Accept},
                                                  {"10??", 0, "", Way::Accept},
                                                  {"21??", '4', "Reject", Way::Refuse},
                                                  {"201?", '1', "", Way::Apply},
                                                  {"2001", '0', "Open", Way::Apply},
                                                  {"2022", '2', "Amended", Way::Apply},
                                                  {"2023", '3', "Withdrawn", Way::Apply},
                                                  {"2024", '5', "", Way::Apply},
                                                  {"?0??", 0, "", Way::Apply}};
        if (IsRepeated(notice) || !IsOfUser(notice) || !PassesFilters(notice)) {
            return false;
        }
        const std::string lot = Text(notice.LotSize);
        const int32_t size = lot == "     " ? 100 : Long(lot);
        BuildEvent(notice, size == 0 ? 1 : size, routes);
        return true;
    }

    bool PassesFilters(const OrderPacket& notice) const {
        const auto filter = [this](std::size_t at, std::size_t width) { return Inquiry.substr(at, width); };
        const auto takesAll = [](const std::string& all) {
            return Trimmed(all).empty() || all == "All" || all == "ALL";
        };
        std::string board = Trimmed(Ended(notice.BoardName));
        if (const std::size_t at = board.find("ADV"); at != std::string::npos) {
            board.replace(at, 3, "NG");
        }
        const char side = filter(29, 1)[0];
        return filter(10, 6) == Text(notice.UserField) &&
               ((takesAll(filter(16, 3)) && filter(19, 1) == " ") || filter(16, 12) == Text(notice.Code)) &&
               (Trimmed(filter(2, 6)).empty() || filter(2, 8) == Text(notice.GroupCode)) &&
               (takesAll(filter(30, 3)) || filter(30, 5).starts_with(board)) &&
               (side == ' ' || side == '2' || (notice.Side != '1' && notice.Side != '2') ||
                side == (notice.Side == '1' ? '1' : '0'));
    }

    char ChannelMark(const OrderPacket& notice) override {
        static const std::map<std::string, char> marks = {{"M1", 'M'}, {"M2", 'M'}, {"M3", 'M'}, {"00", 'D'},
                                                          {"03", 'D'}, {"21", 'A'}, {"T1", 'T'}};
        const std::string code = Text(notice.ChannelCode);
        const bool own = code == "03" && In.MenuGrade == '1' && notice.UserId[0] == '3';
        return own ? 'W' : marks.count(code) == 0 ? 'H' : marks.at(code);
    }

    void Accept(const OrderEvent& event) override {
        if (FindRow(event.ParentOrderNo) == nullptr) {
            InsertRow(event);
        }
    }
    void ApplyRefusal(const OrderEvent& event) override {
        const OrderPtr own = FindRow(event.OrderNo);
        own != nullptr ? Close(*own, "Reject") : InsertRow(event);
    }

    bool ApplyEvent(const OrderEvent& event) override {
        const OrderPtr own = FindRow(event.OrderNo);
        const OrderPtr parent = FindRow(event.ParentOrderNo);
        const char code = event.EventCode;
        if (own == nullptr && parent == nullptr) {
            Accept(event);
            return code != '1';
        }
        if (code == '1') {
            Fill(own != nullptr ? *own : *parent, event);
        } else if (own != nullptr) {
            const bool inTransit = own->Get(kStatus).find("ing") != std::string::npos;
            if (inTransit && (code == '0' || code == '2')) {
                Open(*own, event);
            } else if (inTransit && code == '3') {
                own->Become("Withdrawn");
            }
            if (code == '2' && parent != nullptr) {
                parent->Become("Amended");
            }
        } else if (const bool ended = parent->Is("Done") || parent->Is("Amended") || parent->Is("Withdrawn");
                   code == '0' && !ended && !parent->Is("Open")) {
            Open(*parent, event);
        } else if (code == '2' && !ended) {
            Close(*parent, "Amended");
            InsertRow(event);
        } else if (code == '3' && !parent->Is("Withdrawn")) {
            Close(*parent, "Withdrawn");
        }
        return true;
    }

    static void Open(Order& order, const OrderEvent& event) {
        order.Become("Open");
        order.Put(kDisplayText, event.Columns.Get(kDisplayText));
        if (event.EventCode == '0') {
            order.Put(kChannelMark, event.Columns.Get(kChannelMark));
        }
    }
    static void Close(Order& order, const std::string& word) {
        order.Put(kUnfilledQty, 0), order.Become(word);
    }
    // The price is the average of all fills; a fill of nothing on a row without fills leaves it.
    static void Fill(Order& order, const OrderEvent& event) {
        const auto before = static_cast<double>(order.Number(kFilledQty));
        const auto quantity = static_cast<double>(event.Quantity);
        const double paid =
            Double(order.Get(kFillPrice)) * before + Double(event.Columns.Get(kOrderPrice)) * quantity;
        if (before + quantity != 0) {
            order.Put(kFillPrice, Printed(paid / (before + quantity), 15, 0));
        }
        MoveQuantities(order, event.Quantity);
    }

    void InsertRow(const OrderEvent& event) {
        Order order = event.Columns;
        const bool sending = event.To == Way::Accept;
        if (event.EventCode == '1' && !sending) {  // a fill without its order
            order.Put(kOrderPrice, "");
            order.Put(kOrderQty, "");
            order.Put(kFillPrice, event.Columns.Get(kOrderPrice));
            order.Put(kFilledQty, event.Quantity);
            order.Put(kStatus, "Partial");
        } else if (event.EventCode >= '0' && event.EventCode <= '2') {
            order.Put(kUnfilledQty, event.Quantity);
        }
        if (event.EventCode == '2' && !sending) {
            order.Put(kStatus, "Open");
        }
        InsertTop(order);
        SendChanges('2');
    }

    bool PassesByWord(const Order& order) const {
        static const std::map<char, Rows> words = {
            {'1', {"Sending", "Open", "Partial"}}, {'2', {"Done"}}, {'3', {"Withdraw"}}, {'4', {"Partial"}}};
        const auto wanted = words.find(Inquiry[28]);
        return wanted == words.end() ||
               std::any_of(wanted->second.begin(), wanted->second.end(),
                           [&](const std::string& word) { return order.Begins(word); });
    }

    void SendChanges(char action) {
        const bool keepsShown = Inquiry[28] == '1' || Inquiry[28] == '4';
        const bool promotes = Inquiry[28] >= '2' && Inquiry[28] <= '4';
        int wanted = 1;
        std::size_t count = 0;
        for (const OrderPtr& order : List) {
            const bool byWord = PassesByWord(*order);
            if (!byWord && !(keepsShown && order->Shown)) {
                order->Mark = 0;
                continue;
            }
            if (promotes && byWord && !order->Shown && order->Mark != 0 && action == '3') {
                order->Mark = 2;
                action = '2';
            }
            order->Mark = action == '0' ? 1 : order->Mark;
            wanted = action == '2' ? 2 : 1;
            count += order->Mark == wanted ? 1 : 0;
        }
        for (const OrderPtr& order : List) {
            order->Shown |= count > 0 && order->Mark == wanted;
        }
        if (count > 0) {
            SendMessage('U', -1, action, TakeMarked(wanted), count);
        }
        if (keepsShown) {
            PruneShown();
        }
    }
    // From the bottom; places are counted among the shown rows.
    void PruneShown() {
        int64_t place =
            std::count_if(List.begin(), List.end(), [](const OrderPtr& order) { return order->Shown; });
        for (std::size_t i = List.size(); i > 0; --i) {
            Order& order = *List[i - 1];
            place -= order.Shown ? 1 : 0;
            if (order.Shown && !PassesByWord(order)) {
                order.Shown = false;
                SendMessage('D', place, '3', {}, 0);
            }
        }
    }
    void OnEndBatch() override { SendChanges('3'), Changed = false; }

    std::string Inquiry;
};

#endif
