// The volume of a stock's day by price; each buffer brings the whole table.
#include <algorithm>

#include "module/layouts/RSTRBK01.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/plain_table.h"
#include "terminal/screens/row_table.h"
#include "terminal/text.h"

namespace tools {

namespace {

constexpr std::size_t kBarWidth = 20;

InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    PriceTableInit init;
    FillBlank(init);
    init.Key = StockKeyOf(key);
    PutRepeat<PriceRow>(init.Repeat, 0);
    InitText text;
    text.Append("", init);
    return text;
}

int64_t VolumeOf(std::string_view row) {
    const auto text = row.substr(offsetof(PriceRow, SumVolume), sizeof(PriceRow::SumVolume));
    return std::max<int64_t>(ParseInteger(Trim(text)).value_or(0), 0);
}

// As long as the volume against the largest; what there is shows.
std::string BarOf(int64_t volume, int64_t largest) {
    constexpr auto kWidth = static_cast<int64_t>(kBarWidth);
    const int64_t length = volume == 0 ? 0 : std::max<int64_t>(1, volume * kWidth / largest);
    std::string bar(static_cast<std::size_t>(length), '#');
    bar.resize(kBarWidth, ' ');
    return bar;
}

class PriceTable : public PlainTable {
public:
    explicit PriceTable(std::size_t limit) : PlainTable(RowsTables<PlainRows, PriceRow>()), m_nLimit(limit) {}

    std::string Image() const override {
        if (m_Rows.empty()) {
            return "";
        }
        const std::size_t shown = std::min(m_nLimit, m_Rows.size());
        const std::size_t below = m_Rows.size() - shown;
        const int64_t largest = VolumeOf(*std::max_element(
            m_Rows.begin(), m_Rows.end(),
            [](const std::string& a, const std::string& b) { return VolumeOf(a) < VolumeOf(b); }));
        LayoutTable barred{"", 0, sizeof(PriceRow) + kBarWidth, FieldsOf<PriceRow>()};
        barred.Fields.push_back({"Bar", sizeof(PriceRow), kBarWidth});
        std::string rows;
        for (std::size_t number = 0; number < shown; ++number) {
            rows += m_Rows[number] + BarOf(VolumeOf(m_Rows[number]), largest);
        }
        return RowTable(barred, rows) + (below == 0 ? "" : "  " + Counted(below, "row") + " below\n");
    }

private:
    void TakeRows(std::string_view rows) override {
        m_Rows.clear();
        for (std::size_t at = 0; at < rows.size(); at += sizeof(PriceRow)) {
            m_Rows.emplace_back(rows.substr(at, sizeof(PriceRow)));
        }
    }

    const std::size_t m_nLimit;
    std::vector<std::string> m_Rows;  // top first
};

std::unique_ptr<Screen> Open(const InitText& /*init*/, std::size_t rows) {
    return std::make_unique<PriceTable>(rows);
}

}  // namespace

const ScreenKind kPriceTable = {"RSTRBK01_R", MakeInit, RowsTables<PlainRows, PriceRow>, Open};

}  // namespace tools
