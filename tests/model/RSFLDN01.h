// The trade monitor: its watch set, filters and rows.
#ifndef TICKMUX_TESTS_MODEL_RSFLDN01_H
#define TICKMUX_TESTS_MODEL_RSFLDN01_H

#include <set>

#include "tests/model/model.h"

struct RSFLDN01 : Model {
    using Model::Model;

    // Of the terminal: an industry's list, the stocks, the user's groups, and the brokers' marks.
    inline static const std::set<std::string> kIndustry = {"ASII"}, kStocks = {"ASII", "BBCA"};
    inline static const std::map<int, std::string> kGroups = {{1, "ASII"}, {2, "BBCA"}};
    inline static const std::map<std::string, char> kBrokers = {{"AB", '0'}, {"WXYZ", '1'}};

    bool OnInit(const std::string& text) override {
        if (text.size() < 10) {
            return false;
        }
        Waiting.clear();
        Used = In.Monitor;
        const bool all = Set("TRADE_MONITOR", "ALL").empty() || IsOn("ALL");
        WatchSet = !all ? std::set<std::string>() : In.OwnIndustry ? kIndustry : kStocks;
        for (const std::string& number : Split(all ? "" : Set("FAVOURITES", "SELECTEDGROUP"), 0, 4)) {
            if (const auto group = kGroups.find(Long(number.substr(0, 3))); group != kGroups.end()) {
                WatchSet.insert(group->second);
            }
        }
        FeedMode = all && !In.OwnIndustry ? 'R' : WatchSet.empty() ? FeedMode : 'A';
        return true;
    }

    std::string Set(const char* section, const char* key) const { return Setting(Used, section, key); }
    bool IsOn(const char* filter) const { return Long(Set("TRADE_MONITOR", filter)) != 0; }

    bool OnTrade(const TradePacket& trade) override {
        return FeedMode == 'A' && trade.Volume != 0 && Show(trade, Copied(trade.TradeRef));
    }
    bool OnCompactTrade(const CompactTradePacket& trade) override {
        return FeedMode == 'R' && trade.Volume >= 1 && Show(trade, std::string(8, ' '));
    }

    template <class Packet>
    bool Show(const Packet& trade, const std::string& ref) {
        const std::string code = Trimmed(Text(trade.Key.Code));
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
                          BrokerTag(Text(trade.Broker1)) + Copied(trade.Broker1) +
                          ClassTag(trade.Broker2Class) + trade.Broker2Class + BrokerTag(Text(trade.Broker2)) +
                          Copied(trade.Broker2));
        return true;
    }

    bool Passes(int32_t price, double rate, int32_t volume) const {
        return !(IsOn("PRICE") && (price < Long(Set("PRICE", "FROM")) || price > Long(Set("PRICE", "TO")))) &&
               !(IsOn("CHANGE%") && (rate < TowardsZero(Double(Set("CHANGE%", "FROM"))) ||
                                     rate > Double(Set("CHANGE%", "TO")))) &&
               !(IsOn("VOLUME") && volume < Long(Set("VOLUME", "FROM")));
    }

    static std::string ClassTag(char which) { return which == 'F' ? "4 " : which == 'D' ? "1 " : "  "; }
    static std::string BrokerTag(const std::string& broker) {
        const auto known = kBrokers.find(Trimmed(broker));
        return known == kBrokers.end() ? "  " : known->second == '0' ? "0 " : "4 ";
    }

    Rows TakeChanged() override { return std::exchange(Waiting, {}); }

    std::set<std::string> WatchSet;
    Settings Used;      // of the last inquiry
    char FeedMode = 0;  // the type of the packets that it listens to
    Rows Waiting;
};

#endif
