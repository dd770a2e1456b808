// The board of an interest group: a row each stock, with the state of the user's alarm.
#include "module/layouts/RSITST01.h"
#include "terminal/errors.h"
#include "terminal/screens/board_table.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_table.h"

namespace tools {

namespace {

constexpr std::size_t kAlarmWord = 6;  // "sounds"

std::string AlarmWord(char state) {
    std::string word = state == kAlarmArmed    ? "armed"
                       : state == kAlarmSounds ? "sounds"
                       : state == kAlarmSilent ? "silent"
                                               : "";
    word.resize(kAlarmWord, ' ');
    return word;
}

InterestRow RowOf(std::string_view stock, const BasePrices& bases) {
    const StockKey key = StockKeyOf(stock);
    if (key.Board != '1') {
        throw BadInput("key " + Quoted(stock) + " is not of board 1, as the interest board's stocks are");
    }
    InterestRow row;
    FillBlank(row);
    row.Alarm = kAlarmArmed;
    PutLeft(row.Code, {key.Code, sizeof(key.Code)});
    if (const auto base = bases.find(stock.substr(1)); base != bases.end()) {
        PutRight(row.BasePrice, base->second);
    }
    return row;
}

// The key is a list of stock keys. All alarms are on; those without a section in the user's file wait for
// nothing.
InitText MakeInit(std::string_view key, const InitDefaults& defaults) {
    std::vector<InterestRow> rows;
    for (const std::string_view stock : KeyList(key)) {
        rows.push_back(RowOf(stock, defaults.Bases));
    }
    InterestInit init;
    PutLeft(init.Group, "001");
    PutRepeat<InterestRow>(init.Repeat, rows.size());
    InitText text;
    text.Append("", init);
    AppendRows(text, rows);
    return text;
}

class InterestBoard : public BoardTable {
public:
    explicit InterestBoard(const InitText& init)
        : BoardTable(RowsTables<PlainRows, InterestRow>(),
                     init.Bytes().substr(sizeof(RequestTag) + sizeof(InterestInit)),
                     {"Code", offsetof(InterestRow, Code), sizeof(InterestRow::Code)}, "stock") {}

private:
    // The alarm's state as a word in front of the other fields.
    std::string Table(std::string_view rows) const override {
        LayoutTable worded{"", 0, kAlarmWord + sizeof(InterestRow), FieldsOf<InterestRow>(kAlarmWord)};
        worded.Fields.front() = {"Alarm", 0, kAlarmWord};
        std::string text;
        for (; !rows.empty(); rows.remove_prefix(sizeof(InterestRow))) {
            text += AlarmWord(rows[offsetof(InterestRow, Alarm)]);
            text += rows.substr(0, sizeof(InterestRow));
        }
        return RowTable(worded, text);
    }
};

std::unique_ptr<Screen> Open(const InitText& init, std::size_t /*rows*/) {
    return std::make_unique<InterestBoard>(init);
}

}  // namespace

const ScreenKind kInterestBoard = {"RSITST01_R", MakeInit, RowsTables<PlainRows, InterestRow>, Open};

}  // namespace tools
