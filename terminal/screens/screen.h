// A kind of screen: what the tool knows of a map. Each kind has a file of its own; kinds.cpp lists them.
#ifndef TICKMUX_TERMINAL_SCREENS_SCREEN_H
#define TICKMUX_TERMINAL_SCREENS_SCREEN_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "terminal/fields.h"
#include "terminal/init_text.h"
#include "terminal/master_data.h"

namespace tools {

// One open screen. It keeps what its last image takes; buffers come with their request tag, if they
// have one.
class Screen {
public:
    Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    virtual ~Screen() = default;

    // Takes a buffer in and gives the number of its rows. Failure for one that is not of the screen's layout.
    virtual std::size_t Take(std::string_view buffer) = 0;

    // Text of a buffer that has been taken, and of the screen as it stands: lines, indented.
    virtual std::string Show(std::string_view buffer) const = 0;
    virtual std::string Image() const = 0;

    // Where buffers contradicted what the screen had, since the last call; it has gone on as well as it
    // could.
    std::vector<std::string> TakeFaults() { return std::exchange(m_Faults, {}); }

protected:
    void Fault(std::string text) { m_Faults.push_back(std::move(text)); }

private:
    std::vector<std::string> m_Faults;
};

// What an Init text says unless the workspace says otherwise.
struct InitDefaults {
    std::string Date = "        ";  // YYYYMMDD, the capture's day
    BasePrices Bases = {};
};

struct ScreenKind {
    const char* Map;
    // BadInput for a key that the map cannot have.
    InitText (*MakeInit)(std::string_view key, const InitDefaults& defaults);
    // What a buffer holds, part by part.
    std::vector<LayoutTable> (*Display)();
    // `init` is in its last form; `rows` is how many rows a list keeps for its image.
    std::unique_ptr<Screen> (*Open)(const InitText& init, std::size_t rows);
    // One for the page of layouts.
    const char* SampleKey = "1ASII";
    // Brings the text into its last form when its fields are set. BadInput for what the module would refuse.
    void (*Complete)(InitText& text) = [](InitText& /*text*/) {};
};

// The kinds in order of their maps.
const std::vector<const ScreenKind*>& ScreenKinds();

// BadInput if there is none, with the maps that are known.
const ScreenKind& FindScreenKind(const std::string& map);

// A stock key as text: "1ASII". BadInput unless it is a board char and a code.
StockKey StockKeyOf(std::string_view text);

// An index key as text: "COMP". BadInput unless it is a code.
IndexKey IndexKeyOf(std::string_view text);

// The keys of a list with commas between.
std::vector<std::string_view> KeyList(std::string_view text);

}  // namespace tools

#endif
