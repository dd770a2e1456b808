// The trade monitor: its watch set, filters and rows.
#ifndef TICKMUX_TESTS_MODEL_RSFLDN01_H
#define TICKMUX_TESTS_MODEL_RSFLDN01_H

#include <set>

#include "tests/model/model.h"

struct RSFLDN01 : Model {
    using Model::Model;

    std::string Set(const char* section, const char* key) const { return Setting(In.Monitor, section, key); }

    bool OnInit(const std::string& text) override {
        if (text.size() < 10) {
            return false;
        }
        Waiting.clear();
        Filters = In.Monitor;
        const bool all = Set("TRADE_MONITOR", "ALL").empty() || Long(Set("TRADE_MONITOR", "ALL")) != 0;
        const Rows& stocks = In.OwnIndustry ? In.Industry : In.Stocks;
        WatchSet = all ? std::set<std::string>(stocks.begin(), stocks.end()) : std::set<std::string>();
        const std::string groups = all ? "" : Set("FAVOURITES", "SELECTEDGROUP");
        for (std::size_t at = 0; at < groups.size(); at += 4) {
            const auto group = In.Groups.find(Long(groups.substr(at, 3)));
            if (group != In.Groups.end()) {
                WatchSet.insert(group->second.begin(), group->second.end());
            }
        }
        FeedMode = all && !In.OwnIndustry ? 'R' : WatchSet.empty() ? FeedMode : 'A';
        return true;
    }

    void Release() override { Model::Release(), WatchSet.clear(); }

    bool OnTrade(const TradePacket& trade) override {
        return FeedMode == 'A' && trade.Volume != 0 && Show(trade, Copied(trade.TradeRef));
    }
    bool OnCompactTrade(const CompactTradePacket& trade) override {
        return FeedMode == 'R' && trade.Volume >= 1 && Show(trade, std::string(8, ' '));
    }

    template <class Packet>
    bool Show(const Packet& trade, const std::string& ref) {
        const std::string code = Trimmed(Whole(trade.Key.Code));
        const int direction = Direction(trade.Sign);
        const int32_t change = Wrapped(int64_t{direction} * trade.Change);
        const double rate = Rate(change, Wrapped(int64_t{trade.Price} - change), direction);
        const std::map<char, std::string> suffixes = {{'1', "   "}, {'2', ".TN"}, {'3', ".NG"}, {'4', ".TS"}};
        const auto suffix = suffixes.find(trade.Key.Board);
        if (WatchSet.count(code) == 0 || suffix == suffixes.end() ||
            !Passes(trade.Price, rate, trade.Volume)) {
            return false;
        }
        Waiting.push_back(Copied(trade.Time) + ref + Field(code + suffix->second, 15) + Color(direction) +
                          Printed(trade.Price, 12) + trade.Sign + Color(direction) +
                          Printed(trade.Change, 12) + Color(direction) + Printed(rate, 6, 2) + "  " +
                          Printed(trade.Volume, 12) + ClassTag(trade.Broker1Class) + trade.Broker1Class +
                          BrokerTag(Whole(trade.Broker1)) + Copied(trade.Broker1) +
                          ClassTag(trade.Broker2Class) + trade.Broker2Class +
                          BrokerTag(Whole(trade.Broker2)) + Copied(trade.Broker2));
        return true;
    }

    // By the settings of the last inquiry.
    bool Passes(int32_t price, double rate, int32_t volume) const {
        const auto of = [this](const char* section, const char* key) {
            return Setting(Filters, section, key);
        };
        const auto on = [&](const char* filter) { return Long(of("TRADE_MONITOR", filter)) != 0; };
        return !(on("PRICE") && (price < Long(of("PRICE", "FROM")) || price > Long(of("PRICE", "TO")))) &&
               !(on("CHANGE%") &&
                 (rate < TowardsZero(Double(of("CHANGE%", "FROM"))) || rate > Double(of("CHANGE%", "TO")))) &&
               !(on("VOLUME") && volume < Long(of("VOLUME", "FROM")));
    }

    static std::string ClassTag(char which) { return which == 'F' ? "4 " : which == 'D' ? "1 " : "  "; }
    std::string BrokerTag(const std::string& broker) const {
        const auto known = In.Brokers.find(Trimmed(broker));
        const char mark = known == In.Brokers.end() ? ' ' : known->second[0];
        return mark == '0' ? "0 " : mark == '1' ? "4 " : mark == '2' ? "1 " : "  ";
    }

    Rows TakeChanged() override { return std::exchange(Waiting, {}); }

    std::set<std::string> WatchSet;
    Settings Filters;
    char FeedMode = 0;  // the type of the packets that it listens to
    Rows Waiting;
};

#endif
