// Screens of the terminal programs, fed with what the module makes.
#ifndef TICKMUX_FUZZ_TOOL_SCREENS_H
#define TICKMUX_FUZZ_TOOL_SCREENS_H

#include <memory>

#include "fuzz/desk.h"
#include "fuzz/input.h"
#include "terminal/screens/screen.h"

namespace fuzz {

// The module's screen with the program's view of it. A buffer that the view refuses ends the run: module and
// program have one layout.
class ToolScreen {
public:
    ToolScreen(const tools::ScreenKind& kind, const tools::InitText& init)
        : m_View(kind.Open(init, 10)), m_Screen(Desk::Get(), kind.Map) {
        m_Screen.OnBuffer([this](std::string_view buffer) {
            m_View->Take(buffer);
            Fold(m_View->Show(buffer));
        });
        m_Screen.Init(std::string(init.Bytes()));
    }
    ToolScreen(const ToolScreen&) = delete;
    ToolScreen& operator=(const ToolScreen&) = delete;

    void Show() {
        Fold(m_View->Image());
        for (const std::string& fault : m_View->TakeFaults()) {
            Fold(fault);
        }
    }

private:
    std::unique_ptr<tools::Screen> m_View;
    Screen m_Screen;
};

}  // namespace fuzz

#endif
