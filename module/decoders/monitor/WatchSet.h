// The stocks that a trade monitor shows, found by their code on any board, and the requests that bring their
// trades.
//
// Each way of building one starts from an empty set. False: the terminal has no such data, or memory fails.
#ifndef TICKMUX_MODULE_DECODERS_MONITOR_WATCHSET_H
#define TICKMUX_MODULE_DECODERS_MONITOR_WATCHSET_H

#include <string_view>
#include <utility>

#include "host/services/services.h"
#include "module/containers/key_index.h"
#include "module/framework/code_requests.h"
#include "module/wire/shapes.h"

class WatchSet {
public:
    // The user's interest groups of these numbers: three characters each, and a separator between them.
    bool WatchGroups(const CInterestTable& table, std::string_view numbers);
    // Watches every stock.
    bool WatchMarket();
    // The account's own industry list.
    bool WatchIndustry();

    bool Holds(const StockCode& code) const { return m_Codes.Find(code) != KeyIndex<StockCode>::kNowhere; }
    bool IsWholeMarket() const { return m_bWholeMarket; }

    // Of the codes, each on three boards; nothing for the whole market, whose feed names no stock. Given away
    // once.
    CodeRequests::List GiveRequests() { return std::move(m_Requests); }

private:
    // False: it is there already, or no packet can have such a code.
    bool Watch(std::string_view code);
    // Requests of a code on the boards 1 to 3; room for them must be there.
    void AddRequests(std::string_view code);
    bool MakeRoom(std::size_t codes);

    KeyIndex<StockCode> m_Codes;
    CodeRequests::List m_Requests;
    bool m_bWholeMarket = false;
};

#endif
