#include "terminal/screens/kinds.h"

#include "terminal/errors.h"
#include "terminal/text.h"

namespace tools {

const std::vector<const ScreenKind*>& ScreenKinds() {
#define TICKMUX_PLACE_OF_KIND(kind) &(kind),
    static const std::vector<const ScreenKind*> kinds = {TICKMUX_SCREEN_KINDS(TICKMUX_PLACE_OF_KIND)};
#undef TICKMUX_PLACE_OF_KIND
    return kinds;
}

const ScreenKind& FindScreenKind(const std::string& map) {
    std::vector<std::string> known;
    for (const ScreenKind* kind : ScreenKinds()) {
        if (map == kind->Map) {
            return *kind;
        }
        known.emplace_back(kind->Map);
    }
    throw BadInput("unknown map " + Quoted(map) + "; known: " + Joined(known));
}

StockKey StockKeyOf(std::string_view text) {
    StockKey key;
    FillBlank(key);
    const bool hasBoard = !text.empty() && text[0] >= '1' && text[0] <= '4';
    if (!hasBoard || text.size() < 2 || text.size() > sizeof(key) ||
        text.find('\0') != std::string_view::npos) {
        throw BadInput("key " + Quoted(text) + " is no stock; give a board char 1 to 4 and a code of up to " +
                       std::to_string(sizeof(key.Code)) + " characters, such as 1ASII");
    }
    key.Board = text[0];
    PutLeft(key.Code, text.substr(1));
    return key;
}

std::vector<std::string_view> KeyList(std::string_view text) {
    std::vector<std::string_view> keys;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find(',', from), text.size());
        keys.push_back(text.substr(from, end - from));
        from = end + 1;
    }
    return keys;
}

IndexKey IndexKeyOf(std::string_view text) {
    IndexKey key;
    if (text.empty() || text.size() > sizeof(key) || text.find('\0') != std::string_view::npos) {
        throw BadInput("key " + Quoted(text) + " is no index; give a code of up to " +
                       std::to_string(sizeof(key)) + " characters, such as COMP");
    }
    PutLeft(key.IndexCode, text);
    return key;
}

}  // namespace tools
