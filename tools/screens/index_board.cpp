// The board of indices: a row each, of which a buffer brings those that have changed.
#include "layouts/RITRDE02.h"
#include "tools/screens/plain_table.h"
#include "tools/screens/row_table.h"
#include "tools/text.h"

namespace tools {

namespace {

// The key is a list of index codes.
InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    std::vector<IndexBoardRow> rows;
    for (std::size_t from = 0; from <= key.size();) {
        const std::size_t end = std::min(key.find(',', from), key.size());
        FillBlank(rows.emplace_back());
        rows.back().Key = IndexKeyOf(key.substr(from, end - from));
        from = end + 1;
    }
    RepeatHead repeat;
    FillBlank(repeat);
    PutRight(repeat.Count, std::to_string(rows.size()));
    PutRight(repeat.Size, std::to_string(sizeof(IndexBoardRow)));
    InitText text;
    text.Append("Repeat", repeat);
    for (std::size_t number = 0; number < rows.size(); ++number) {
        text.Append("Row" + std::to_string(number + 1), rows[number]);
    }
    return text;
}

class IndexBoard : public PlainTable {
public:
    explicit IndexBoard(const InitText& init)
        : PlainTable(RowsTables<PlainRows, IndexBoardRow>()),
          m_Rows(init.Bytes().substr(sizeof(PlainRows))) {}

    std::string Image() const override { return RowTable(Row(), m_Rows); }

private:
    static std::string_view KeyAt(std::string_view rows, std::size_t at) {
        return rows.substr(at + offsetof(IndexBoardRow, Key), sizeof(IndexKey));
    }

    // Of two rows with one key the upper one is meant.
    void TakeRows(std::string_view rows) override {
        for (std::size_t from = 0; from < rows.size(); from += sizeof(IndexBoardRow)) {
            std::size_t to = 0;
            while (to < m_Rows.size() && KeyAt(m_Rows, to) != KeyAt(rows, from)) {
                to += sizeof(IndexBoardRow);
            }
            if (to < m_Rows.size()) {
                m_Rows.replace(to, sizeof(IndexBoardRow), rows, from, sizeof(IndexBoardRow));
            } else {
                Fault("a row of index " + Quoted(KeyAt(rows, from)) + ", which the board does not have");
            }
        }
    }

    std::string m_Rows;
};

std::unique_ptr<Screen> Open(const InitText& init, std::size_t /*rows*/) {
    return std::make_unique<IndexBoard>(init);
}

}  // namespace

extern const ScreenKind kIndexBoard = {"RITRDE02_R", MakeInit, RowsTables<PlainRows, IndexBoardRow>, Open,
                                       "COMP"};

}  // namespace tools
