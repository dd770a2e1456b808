// How a trade monitor orders its trades: stocks one by one, or the feed of the whole market.
//
// A list of stocks is subscribed to, and handed in through a function channel; its trades come as A packets.
// The whole market's come as R packets, and no stock is named. That feed is one for the whole module: the
// first monitor that needs it switches it on, the last one off.
#ifndef TICKMUX_MODULE_DECODERS_MONITOR_MONITORFEED_H
#define TICKMUX_MODULE_DECODERS_MONITOR_MONITORFEED_H

#include "host/services/services.h"
#include "module/framework/code_requests.h"

class MonitorFeed {
public:
    explicit MonitorFeed(HWND hWnd);

    // The type of the packets that count: 0, 'A' or 'R'.
    char Mode() const { return m_chFeedMode; }

    // Hands the list in and changes the mode to its trades; an empty list changes nothing.
    void SendWatchRequest(const CodeRequests::List& stocks);

    // The whole market's feed, and the mode to it; off, the mode stays.
    void SwitchAllMarketOn();
    void SwitchAllMarketOff();

private:
    CQelFunc m_ListFunc;
    CQelFunc m_AllFunc;
    char m_chFeedMode = 0;
};

#endif
