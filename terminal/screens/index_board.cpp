// The board of indices: a row each, of which a buffer brings those that have changed.
#include "module/layouts/RITRDE02.h"
#include "terminal/screens/board_table.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_table.h"

namespace tools {

namespace {

// The key is a list of index codes.
InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    std::vector<IndexBoardRow> rows;
    for (const std::string_view code : KeyList(key)) {
        FillBlank(rows.emplace_back());
        rows.back().Key = IndexKeyOf(code);
    }
    RepeatHead repeat;
    PutRepeat<IndexBoardRow>(repeat, rows.size());
    InitText text;
    text.Append("Repeat", repeat);
    AppendRows(text, rows);
    return text;
}

class IndexBoard : public BoardTable {
public:
    explicit IndexBoard(const InitText& init)
        : BoardTable(RowsTables<PlainRows, IndexBoardRow>(), init.Bytes().substr(sizeof(PlainRows)),
                     {"Key", offsetof(IndexBoardRow, Key), sizeof(IndexKey)}, "index") {}
};

std::unique_ptr<Screen> Open(const InitText& init, std::size_t /*rows*/) {
    return std::make_unique<IndexBoard>(init);
}

}  // namespace

const ScreenKind kIndexBoard = {"RITRDE02_R", MakeInit, RowsTables<PlainRows, IndexBoardRow>, Open, "COMP"};

}  // namespace tools
