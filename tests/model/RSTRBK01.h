// The price table.
#ifndef TICKMUX_TESTS_MODEL_RSTRBK01_H
#define TICKMUX_TESTS_MODEL_RSTRBK01_H

#include "tests/model/model.h"

struct RSTRBK01 : Model {
    using Model::Model;

    bool OnInit(const std::string& text) override {
        Table.clear();
        const int count = CountAt(text, 21, 45);
        const int size = count < 0 ? 0 : std::clamp(Long(text.substr(25, 4)), 0, 62);
        const bool whole = count == 0 || 45 + (count - 1) * 62 + size <= std::ssize(text);  // steps are of 62
        if (count < 0 || !whole) {
            return false;
        }
        Key = text.substr(2, 11);
        for (const std::string& row : Split(text, 45, 62)) {
            Table.push_back(Field(row.substr(0, static_cast<std::size_t>(size)), 62));
        }
        Table.resize(static_cast<std::size_t>(count), std::string(62, ' '));
        return true;
    }
    void Forget() override { Table.clear(), Key.assign(11, ' '); }

    bool OnTrade(const TradePacket& trade) override {
        if (Text(trade.Key) != Key) {
            return false;
        }
        const auto price = [](const std::string& row) { return Long(row.substr(2, 15)); };
        auto row = std::find_if(Table.begin(), Table.end(),
                                [&](const auto& at) { return price(at) == trade.Price; });
        if (row == Table.end()) {  // then in front of the first that is not above
            row = std::find_if(Table.begin(), Table.end(),
                               [&](const auto& at) { return price(at) <= trade.Price; });
            row = Table.insert(row, Field(Color(Direction(trade.Sign)) + Printed(trade.Price, 15), 62));
        }
        const int32_t trades = Wrapped(Long(row->substr(17, 15)) + int64_t{1});
        const int32_t volume = Wrapped(int64_t{Long(row->substr(32, 15))} + trade.Volume);
        const auto value = static_cast<int64_t>(static_cast<uint64_t>(int64_t{trade.LotSize} * trade.Price) *
                                                static_cast<uint64_t>(int64_t{volume}));
        *row = row->substr(0, 17) + Printed(trades, 15) + Printed(volume, 15) + Printed(value / 1000, 15);
        return true;
    }
    Rows TakeChanged() override { return Table; }

    std::string Key = std::string(11, ' ');
    Rows Table;  // highest price first
};

#endif
