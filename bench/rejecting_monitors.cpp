// A whole-market trade at 20 trade monitors that all reject it by their filters.

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "bench/support/market.h"
#include "bench/support/session.h"

namespace {

constexpr unsigned kStocks = 900;

// The whole market, and only trades that no trade is as large as.
std::filesystem::path SetUpTerminal() {
    std::string pattern = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
    std::filesystem::path folder = mkdtemp(pattern.data());
    std::ofstream(folder / "TradeMonEnv.ini") << "[TRADE_MONITOR]\nVOLUME=1\n[VOLUME]\nFROM=2000000000\n";
    tickhost_set_text("UserDir", folder.c_str());
    std::vector<std::string> codes;
    codes.reserve(kStocks);
    for (unsigned stock = 0; stock < kStocks; ++stock) {
        codes.push_back(bench::StockOf(stock).substr(1));
    }
    std::vector<const char*> texts;
    texts.reserve(kStocks);
    for (const std::string& code : codes) {
        texts.push_back(code.c_str());
    }
    tickhost_set_master(0, kStocks, texts.data(), texts.data(), texts.data());
    tickhost_set_master(3, 0, nullptr, nullptr, nullptr);
    return folder;
}

}  // namespace

int main(int argc, char** argv) {
    const std::filesystem::path folder = SetUpTerminal();
    bench::Market market(1);
    bench::Script script;
    script.Screens.assign(20, {"RSFLDN01_R", "M1unread.."});
    for (int i = 0; i < 1024; ++i) {
        script.Feed.Add(market.CompactTrade(bench::StockOf(market.Below(kStocks))));
    }
    script.nBatch = 8;
    const bench::Question question =
        bench::Compare("a whole-market trade at 20 monitors that reject it", 10, script);
    std::filesystem::remove_all(folder);
    return bench::Ask(argc, argv, {question});
}
