// How a trade monitor orders its trades: stocks one by one, or the feed of the whole market.
//
// A list of stocks is subscribed to, and handed in through a function channel; its trades come as A packets.
// The whole market's come as R packets, and no stock is named. That feed is one for the whole module: the
// first monitor that needs it switches it on, the last one off.
#ifndef TICKMUX_DECODERS_MONITORFEED_H
#define TICKMUX_DECODERS_MONITORFEED_H

#include <cstddef>

#include "framework/plain_array.h"
#include "framework/shapes.h"
#include "host/services.h"

// What a monitor has asked for.
struct FeedEntries {
    bool AllMarket = false;  // the whole market; else the stocks
    PlainArray<StockKey> Stocks;
    std::size_t nSubscribed = 0;  // of the stocks
};

class MonitorFeed {
public:
    explicit MonitorFeed(HWND hWnd);

    // The type of the packets that count: 0, 'A' or 'R'.
    char Mode() const { return m_chFeedMode; }

    // Orders the entries' feed and changes the mode to it; without entries nothing changes.
    void SendWatchRequest(const FeedEntries& entries);

    // The next stock that has not been subscribed to.
    static void SubscribeNext(FeedEntries& entries);
    void Withdraw(const FeedEntries& entries);

private:
    void SwitchAllMarketOn();
    void SwitchAllMarketOff();

    CQelFunc m_ListFunc;
    CQelFunc m_AllFunc;
    char m_chFeedMode = 0;
};

#endif
