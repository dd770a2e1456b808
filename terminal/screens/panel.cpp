#include "terminal/screens/panel.h"

#include "terminal/errors.h"
#include "terminal/text.h"

namespace tools {

std::string FieldLines(const LayoutTable& layout, std::string_view buffer) {
    std::vector<std::pair<std::string, std::string>> lines;
    std::size_t width = 0;
    for (const Field& field : layout.Fields) {
        const std::string_view value = Trim(field.Of(buffer));
        if (!value.empty() || !field.IsReserved()) {
            lines.emplace_back(field.Name, Printable(value));
            width = std::max(width, field.Name.size());
        }
    }
    std::string text;
    for (const auto& [name, value] : lines) {
        const std::string gap = value.empty() ? "" : std::string(width + 1 - name.size(), ' ');
        text += "  " + name + ":" + gap + value + "\n";
    }
    return text;
}

std::size_t Panel::Take(std::string_view buffer) {
    if (buffer.size() != m_Layout.Size) {
        throw Failure("a buffer of " + Counted(buffer.size(), "byte") + " where the layout has " +
                      std::to_string(m_Layout.Size));
    }
    m_Latest = buffer;
    return 0;
}

}  // namespace tools
