// What trade monitors of the whole market need: master data of stocks, and a volume filter in the user's
// folder.
#ifndef TICKMUX_BENCH_SUPPORT_MONITOR_TERMINAL_H
#define TICKMUX_BENCH_SUPPORT_MONITOR_TERMINAL_H

#include <string>
#include <vector>

#include "host/tickhost.h"
#include "tests/support/market.h"
#include "tests/support/scratch_folder.h"

namespace bench {

class MonitorTerminal {
public:
    MonitorTerminal(unsigned stocks, int32_t fromVolume) {
        m_Folder.Write("TradeMonEnv.ini",
                       "[TRADE_MONITOR]\nVOLUME=1\n[VOLUME]\nFROM=" + std::to_string(fromVolume) + "\n");
        tickhost_set_text("UserDir", m_Folder.Path("").c_str());
        std::vector<std::string> codes(stocks);
        std::vector<const char*> texts(stocks);
        for (unsigned stock = 0; stock < stocks; ++stock) {
            codes[stock] = StockOf(stock).substr(1);
            texts[stock] = codes[stock].c_str();
        }
        tickhost_set_master(0, static_cast<int>(stocks), texts.data(), texts.data(), texts.data());
        tickhost_set_master(3, 0, nullptr, nullptr, nullptr);
    }

    void Write(const std::string& file, const std::string& text) const { m_Folder.Write(file, text); }

private:
    const ScratchFolder m_Folder;
};

}  // namespace bench

#endif
