#include "tools/emitters.h"

#include <cstdlib>

#include "tools/text.h"

namespace tools {

namespace {

constexpr char kBoard = '1';

StockKey KeyOf(const std::string& code) {
    StockKey key;
    key.Board = kBoard;
    PutLeft(key.Code, code);
    return key;
}

char SignOf(int32_t change) {
    constexpr char kRise = '2';
    constexpr char kFall = '5';
    constexpr char kSame = '0';
    return change > 0 ? kRise : change < 0 ? kFall : kSame;
}

}  // namespace

WholePacket<TradePacket> MakeTrade(const Deal& deal, Timestamp local) {
    const Stock& stock = *deal.Of;
    const int32_t change = stock.Price - stock.Base;
    WholePacket<TradePacket> whole;
    TradePacket& trade = whole.Payload;
    FillBlank(trade);
    trade.Key = KeyOf(stock.Code);
    PutLeft(trade.Time, TimeText(local));
    trade.Sign = SignOf(change);
    PutLeft(trade.Broker1, deal.First.Code);
    trade.Broker1Class = deal.First.Class;
    PutLeft(trade.Broker2, deal.Second.Code);
    trade.Broker2Class = deal.Second.Class;
    constexpr int64_t kRefs = 100'000'000;  // eight digits
    PutLeft(trade.TradeRef, std::to_string(kRefs + deal.Number % kRefs).substr(1));
    trade.Price = stock.Price;
    trade.Change = std::abs(change);
    trade.Open = stock.Open;
    trade.High = stock.High;
    trade.Low = stock.Low;
    trade.Best1Price = stock.BestBelow();
    trade.Best2Price = stock.BestAbove();
    trade.TradeCount = stock.TradeCount;
    trade.Volume = deal.Volume;
    trade.TotalVolume = stock.TotalVolume;
    trade.Value = deal.Value;
    trade.TotalValue = stock.TotalValue;
    trade.LotSize = kLotSize;
    return whole;
}

WholePacket<NavPacket> MakeNav(const Fund& fund, bool close) {
    WholePacket<NavPacket> whole;
    NavPacket& nav = whole.Payload;
    FillBlank(nav);
    nav.Key = KeyOf(fund.Code);
    PutLeft(nav.Kind, close ? "1" : "0");
    PutRight(nav.Value1, FundValueText(close ? fund.Closing : fund.Indicative));
    if (close) {
        PutRight(nav.Value2, FundValueText(fund.Previous));
    }
    return whole;
}

}  // namespace tools
