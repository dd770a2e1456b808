#include "terminal/master_data.h"

#include "feed/market.h"
#include "module/wire/packets.h"
#include "terminal/errors.h"
#include "terminal/text.h"
#include "terminal/word_file.h"

namespace tools {

namespace {

constexpr std::string_view kMarks = "012";

void CheckCode(const std::string& code, std::size_t width) {
    if (code.empty() || code.size() > width) {
        throw BadInput("code " + Quoted(code) + " does not have 1 to " + std::to_string(width) +
                       " characters; mend it");
    }
}

}  // namespace

MasterData ReadMasterData(const std::string& path) {
    MasterData master;
    ReadWordFile(path, [&master](const std::string& /*place*/, const std::vector<std::string>& words) {
        if (words.size() == 3 && words[0] == "stock") {
            CheckCode(words[1], sizeof(StockKey::Code));
            master.Stocks.push_back({words[1], words[2], ""});
        } else if (words.size() == 4 && words[0] == "broker" && words[3].size() == 1 &&
                   kMarks.find(words[3]) != std::string_view::npos) {
            CheckCode(words[1], sizeof(TradePacket::Broker1));
            master.Brokers.push_back({words[1], words[2], words[3]});
        } else {
            throw BadInput(
                "neither a stock nor a broker; write stock CODE NAME, or broker CODE NAME MARK with "
                "a mark of 0, 1 or 2");
        }
    });
    return master;
}

MasterData FeedMasterData() {
    const Market market(0, kMostStocks, 0);
    MasterData master;
    for (const Stock& stock : market.Stocks()) {
        master.Stocks.push_back({stock.Code, stock.Code + " shares", ""});
    }
    for (const Broker& broker : market.Brokers()) {
        const std::size_t mark = master.Brokers.size() % kMarks.size();
        master.Brokers.push_back({broker.Code, "Broker " + broker.Code, std::string(1, kMarks[mark])});
    }
    return master;
}

}  // namespace tools
