#include "terminal/master_data.h"

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

const std::string& BaseOf(const std::string& text) {
    const std::optional<int64_t> price = ParseInteger(text);
    if (!price || *price < 0 || *price > INT32_MAX) {
        throw BadInput("base price " + Quoted(text) + " is no number from 0 to " + std::to_string(INT32_MAX) +
                       "; mend it");
    }
    return text;
}

}  // namespace

MasterData ReadMasterData(const std::string& path) {
    MasterData master;
    ReadWordFile(path, [&master](const std::string& /*place*/, const std::vector<std::string>& words) {
        if ((words.size() == 3 || words.size() == 4) && words[0] == "stock") {
            CheckCode(words[1], sizeof(StockKey::Code));
            master.Stocks.push_back({words[1], words[2], ""});
            if (words.size() == 4) {
                master.Bases[words[1]] = BaseOf(words[3]);
            }
        } else if (words.size() == 4 && words[0] == "broker" && words[3].size() == 1 &&
                   kMarks.find(words[3]) != std::string_view::npos) {
            CheckCode(words[1], sizeof(TradePacket::Broker1));
            master.Brokers.push_back({words[1], words[2], words[3]});
        } else {
            throw BadInput(
                "neither a stock nor a broker; write stock CODE NAME [BASE], or broker CODE NAME MARK "
                "with a mark of 0, 1 or 2");
        }
    });
    return master;
}

}  // namespace tools
