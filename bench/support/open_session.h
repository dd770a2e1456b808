// The one session of the module that is open: benchmarks that ask for the same one after another share it,
// since a session of many screens takes long to open and to close.
#ifndef TICKMUX_BENCH_SUPPORT_OPEN_SESSION_H
#define TICKMUX_BENCH_SUPPORT_OPEN_SESSION_H

#include <functional>
#include <memory>
#include <string>

#include "bench/support/session.h"

namespace bench {

class OpenSession {
public:
    // `name` tells sessions apart; `make` gives the script if it is another than the last.
    Session<ModuleForm>& Of(const std::string& name, const std::function<Script()>& make) {
        if (m_pSession == nullptr || name != m_Name) {
            m_pSession.reset();
            m_pSession = std::make_unique<Session<ModuleForm>>(make());
            m_Name = name;
        }
        return *m_pSession;
    }

private:
    std::string m_Name;
    std::unique_ptr<Session<ModuleForm>> m_pSession;
};

// Tick lists of so many screens, spread evenly over so many keys.
inline Script TickLists(unsigned screens, unsigned keys) {
    Script script;
    for (unsigned screen = 0; screen < screens; ++screen) {
        script.Screens.push_back({"RSTICK11_R", TickInquiry(StockOf(screen % keys)).Dates({})});
    }
    return script;
}

}  // namespace bench

#endif
