// What the three order lists share: the row, the event, its routes, and the message to the view.
#ifndef TICKMUX_TESTS_MODEL_ORDERS_H
#define TICKMUX_TESTS_MODEL_ORDERS_H

#include <memory>

#include "tests/model/model.h"

// A column of the row: where it begins and how wide it is.
struct Column {
    std::size_t At, Width;
};
inline constexpr Column kDisplayText{6, 12}, kBoard{33, 6}, kOrderPrice{39, 15}, kOrderQty{54, 15},
    kFillPrice{69, 15}, kFilledQty{84, 15}, kUnfilledQty{99, 15}, kStatus{134, 20}, kOrderNo{154, 7},
    kChannelMark{161, 1};

struct Order : Texts {
    std::string Row;
    int Mark = 1;        // 0: the view has the row as it is, 1: changed, 2: new
    bool Shown = false;  // by the filtered list: the view has it

    std::string Get(Column column) const { return Row.substr(column.At, column.Width); }
    int64_t Number(Column column) const { return Figure(Get(column)); }
    bool Is(const std::string& word) const { return Trimmed(Get(kStatus)) == word; }
    bool Begins(const std::string& word) const { return Get(kStatus).starts_with(word); }
    void Put(Column column, const std::string& text) {
        Row.replace(column.At, column.Width, Field(text, column.Width));
    }
    void Put(Column column, int64_t number) { Put(column, Printed(number, column.Width)); }
    void Become(const std::string& word) { Put(kStatus, word), Mark = 1; }
};
using OrderPtr = std::shared_ptr<Order>;

// Notice kind, result flag, state and action, '?' for any; the first that fits counts.
enum class Way { Accept, Refuse, Apply };
struct Route {
    std::string Pattern;
    char EventCode;  // 0: none
    std::string StatusWord;
    Way To;
};

// The reading of one notice.
struct OrderEvent {
    int32_t OrderNo, ParentOrderNo;
    int64_t Quantity;
    Order Columns;  // what a row takes from it in any case
    char EventCode = 0;
    Way To = Way::Apply;
};

struct Orders : Model {
    using Model::Model;

    void Forget() override { Pending.clear(), List.clear(); }
    // The text has the rows from there on, and nothing else.
    bool TakeRows(const std::string& text, std::size_t at, int count) {
        for (const std::string& row : IsSize(text, at, count, 171) ? Split(text, at, 171) : Rows()) {
            List.push_back(std::make_shared<Order>(Order{{}, row}));
        }
        return IsSize(text, at, count, 171);
    }

    // The comparison ends at a zero byte.
    bool IsRepeated(const OrderPacket& notice) {
        const std::string former = std::exchange(LastPacket, Ended(notice));
        return former == LastPacket;
    }
    bool IsOfUser(const OrderPacket& notice) const {
        return Text(notice.UserId).substr(0, 19) == In.UserId && Text(notice.RecordKind) == "01";
    }

    // Gives the notice its way.
    void BuildEvent(const OrderPacket& notice, int64_t divisor, const std::vector<Route>& routes) {
        const std::string codes{notice.NoticeKind, notice.ResultFlag, notice.OrderState, notice.OrderAction};
        const auto route = std::find_if(routes.begin(), routes.end(), [&](const Route& known) {
            return std::equal(codes.begin(), codes.end(), known.Pattern.begin(),
                              [](char is, char wanted) { return wanted == '?' || wanted == is; });
        });
        if (route == routes.end()) {
            return;
        }
        const int64_t quantity = Figure(Ended(notice.Quantity)) / divisor;
        const std::string side(1, notice.Side);
        const std::string board = Ended(notice.BoardName);
        const std::string row =
            Field(Ended(notice.Time), 6) + Field(Ended(notice.DisplayText), 12) +
            Field(Ended(notice.Code), 12) +
            (side == "1"   ? "2 1"
             : side == "2" ? "4 0"
                           : "  " + side) +
            (board.starts_with("TN") ? "1" : "0") + Field(board, 5) + Field(Ended(notice.Price), 15) +
            Printed(quantity, 15) + std::string(45, ' ') + Field(Ended(notice.UserId), 20) +
            Field(route->StatusWord, 20) + Field(Ended(notice.OrderNo), 7) + ChannelMark(notice);
        const OrderEvent event{Long(Ended(notice.OrderNo)),
                               Long(Ended(notice.ParentOrderNo)),
                               quantity,
                               {{}, Field(row, 171)},
                               route->EventCode,
                               route->To};
        if (event.To == Way::Accept) {
            Accept(event);
            DrainPending(event.OrderNo);
        } else if (event.To == Way::Refuse) {
            ApplyRefusal(event);
        } else if (!ApplyEvent(event)) {
            Pending.push_back(event);
        }
    }
    virtual char ChannelMark(const OrderPacket& /*notice*/) { return ' '; }
    virtual void Accept(const OrderEvent& event) = 0;  // of the order, or its sending
    virtual void ApplyRefusal(const OrderEvent& event) = 0;
    virtual bool ApplyEvent(const OrderEvent& event) = 0;  // false: it has to be parked

    // Whatever comes of them, they leave.
    void DrainPending(int32_t number) {
        for (const OrderEvent& event : std::exchange(Pending, {})) {
            event.OrderNo == number ? static_cast<void>(ApplyEvent(event)) : Pending.push_back(event);
        }
    }

    // The first from the top; null: none.
    OrderPtr FindRow(int32_t number) const {
        const auto row = std::find_if(List.begin(), List.end(), [&](const OrderPtr& order) {
            return order->Number(kOrderNo) == number;
        });
        return row == List.end() ? nullptr : *row;
    }
    int64_t PlaceOf(const OrderPtr& order) const {
        return std::find(List.begin(), List.end(), order) - List.begin();
    }

    void InsertTop(Order order) {
        order.Mark = 2;
        List.insert(List.begin(), std::make_shared<Order>(order));
    }
    // The rows of that mark; the view has them then.
    Rows TakeMarked(int mark) {
        Rows rows;
        for (const OrderPtr& order : List) {
            rows.resize(rows.size() + (order->Mark == mark ? 1 : 0), order->Row);
            order->Mark = order->Mark == mark ? 0 : order->Mark;
        }
        return rows;
    }

    // A fill moves the quantities, of the filled one no more than was ordered.
    static void MoveQuantities(Order& order, int64_t quantity) {
        const int64_t filled = order.Number(kFilledQty) + quantity;
        const int64_t open = order.Number(kUnfilledQty) - quantity;
        order.Put(kFilledQty, std::min(filled, order.Number(kOrderQty)));
        order.Put(kUnfilledQty, std::max<int64_t>(open, 0));
        order.Become(filled == 0 ? "Open" : filled < 0 || open < 0 ? "" : open > 0 ? "Partial" : "Done");
    }

    // The message has room for so many rows, which need not all come.
    void SendMessage(char operation, int64_t index, char action, const Rows& rows, std::size_t room) {
        Rows all = {Field(operation + Printed(index, 4) + action, 171)};
        all.insert(all.end(), rows.begin(), rows.end());
        SendRows("", all);
        Sent.back().resize(197 + room * 171, ' ');
    }

    std::vector<OrderPtr> List;  // top first
    std::vector<OrderEvent> Pending;
    std::string LastPacket = std::string(sizeof(OrderPacket), ' ');
};

#endif
