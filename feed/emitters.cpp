#include "feed/emitters.h"

#include <cstdlib>

#include "terminal/text.h"

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

WholePacket<CompactTradePacket> MakeCompactTrade(const Deal& deal, Timestamp local) {
    const Stock& stock = *deal.Of;
    const int32_t change = stock.Price - stock.Base;
    WholePacket<CompactTradePacket> whole;
    CompactTradePacket& trade = whole.Payload;
    FillBlank(trade);
    PutLeft(trade.Time, TimeText(local));
    trade.Key = KeyOf(stock.Code);
    PutLeft(trade.Broker1, deal.First.Code);
    trade.Broker1Class = deal.First.Class;
    PutLeft(trade.Broker2, deal.Second.Code);
    trade.Broker2Class = deal.Second.Class;
    trade.Price = stock.Price;
    trade.Sign = SignOf(change);
    trade.Change = std::abs(change);
    trade.Volume = deal.Volume;
    return whole;
}

WholePacket<BookPacket> MakeBook(const Book& book) {
    WholePacket<BookPacket> whole;
    BookPacket& packet = whole.Payload;
    FillBlank(packet);
    packet.Key = KeyOf(book.Of->Code);
    packet.BasePrice = book.Of->Base;
    static_assert(sizeof(packet.Levels) == kBookLevels * sizeof(PacketLevel));
    const auto levelOf = [](const BookSide& side, std::size_t number) {
        return number < side.Levels.size() ? side.Levels[number] : PriceLevel{0, 0};
    };
    for (std::size_t number = 0; number < kBookLevels; ++number) {
        PacketLevel& level = packet.Levels[number];
        const PriceLevel below = levelOf(book.Below, number);
        const PriceLevel above = levelOf(book.Above, number);
        level.Side1Price = below.Price;
        level.Side1Qty = below.Quantity;
        level.Side2Price = above.Price;
        level.Side2Qty = above.Quantity;
    }
    packet.Side1Total = book.Below.Total;
    packet.Side2Total = book.Above.Total;
    return whole;
}

WholePacket<BrokerPacket> MakeBrokers(const BrokerTotals& totals, Timestamp local) {
    WholePacket<BrokerPacket> whole;
    BrokerPacket& packet = whole.Payload;
    FillBlank(packet);
    packet.Key = KeyOf(totals.Of->Code);
    PutLeft(packet.Time, TimeText(local));
    for (std::size_t number = 0; number < std::size(packet.Rows); ++number) {
        BrokerRow& row = packet.Rows[number];
        if (number < totals.First.size()) {
            PutLeft(row.Broker1, totals.First[number].Code);
            PutDigits(row.Qty1, totals.First[number].Quantity);
        }
        if (number < totals.Second.size()) {
            PutLeft(row.Broker2, totals.Second[number].Code);
            PutDigits(row.Qty2, totals.Second[number].Quantity);
        }
    }
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

WholePacket<BarPacket> MakeBar(const Stock& stock, const MinuteBar& minute, Timestamp end) {
    WholePacket<BarPacket> whole;
    BarPacket& bar = whole.Payload;
    FillBlank(bar);
    bar.Key = KeyOf(stock.Code);
    PutLeft(bar.Time, TimeText(end));
    bar.Open = minute.Open;
    bar.High = minute.High;
    bar.Low = minute.Low;
    bar.Close = minute.Close;
    bar.Volume = minute.Volume;
    return whole;
}

WholePacket<IndexPacket> MakeIndex(const Index& index, Timestamp local) {
    const int32_t change = index.Value - index.Base;
    WholePacket<IndexPacket> whole;
    IndexPacket& update = whole.Payload;
    FillBlank(update);
    PutLeft(update.Key.IndexCode, index.Code);
    PutLeft(update.Time, TimeText(local));
    update.Sign = SignOf(change);
    update.Index = index.Value;
    update.Change = std::abs(change);
    update.Volume = index.Volume;
    update.Value = index.Money;
    update.Count5 = index.TradeCount;
    update.TotalVolume = index.TotalVolume;
    update.TotalValue = index.TotalValue;
    update.Count2 = index.Falling;
    update.Count1 = index.Rising;
    update.Count3 = index.Unchanged;
    update.Count4 = index.Untraded;
    update.Open = index.Open;
    update.High = index.High;
    update.Low = index.Low;
    return whole;
}

WholePacket<IndexBarPacket> MakeIndexBar(const Index& index, int32_t volume, Timestamp end) {
    WholePacket<IndexBarPacket> whole;
    IndexBarPacket& bar = whole.Payload;
    FillBlank(bar);
    PutLeft(bar.Key.IndexCode, index.Code);
    PutLeft(bar.Time, TimeText(end));
    bar.Index = index.Value;
    bar.Volume = volume;
    return whole;
}

}  // namespace tools
