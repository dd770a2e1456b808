// What trade monitors of the whole market need: master data of stocks, and a volume filter in the user's
// folder.
#ifndef TICKMUX_BENCH_SUPPORT_MONITOR_TERMINAL_H
#define TICKMUX_BENCH_SUPPORT_MONITOR_TERMINAL_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/support/market.h"
#include "host/tickhost.h"

namespace bench {

class MonitorTerminal {
public:
    MonitorTerminal(unsigned stocks, int32_t fromVolume) {
        std::string pattern = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
        m_Folder = mkdtemp(pattern.data());
        std::ofstream(m_Folder / "TradeMonEnv.ini")
            << "[TRADE_MONITOR]\nVOLUME=1\n[VOLUME]\nFROM=" << fromVolume << "\n";
        tickhost_set_text("UserDir", m_Folder.c_str());
        std::vector<std::string> codes;
        codes.reserve(stocks);
        for (unsigned stock = 0; stock < stocks; ++stock) {
            codes.push_back(StockOf(stock).substr(1));
        }
        std::vector<const char*> texts;
        texts.reserve(stocks);
        for (const std::string& code : codes) {
            texts.push_back(code.c_str());
        }
        tickhost_set_master(0, static_cast<int>(stocks), texts.data(), texts.data(), texts.data());
        tickhost_set_master(3, 0, nullptr, nullptr, nullptr);
    }
    ~MonitorTerminal() { std::filesystem::remove_all(m_Folder); }
    MonitorTerminal(const MonitorTerminal&) = delete;
    MonitorTerminal& operator=(const MonitorTerminal&) = delete;

private:
    std::filesystem::path m_Folder;
};

}  // namespace bench

#endif
