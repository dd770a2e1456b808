// A screen of single fields, which each buffer brings whole.
#ifndef TICKMUX_TERMINAL_SCREENS_PANEL_H
#define TICKMUX_TERMINAL_SCREENS_PANEL_H

#include <string>

#include "terminal/screens/screen.h"

namespace tools {

// "Name: value" lines of a layout's fields, reserved ones only if they hold something.
std::string FieldLines(const LayoutTable& layout, std::string_view buffer);

class Panel : public Screen {
public:
    explicit Panel(LayoutTable layout) : m_Layout(std::move(layout)) {}

    std::size_t Take(std::string_view buffer) override;
    std::string Show(std::string_view buffer) const override { return FieldLines(m_Layout, buffer); }
    std::string Image() const override { return m_Latest.empty() ? "" : Show(m_Latest); }

private:
    const LayoutTable m_Layout;
    std::string m_Latest;
};

}  // namespace tools

#endif
