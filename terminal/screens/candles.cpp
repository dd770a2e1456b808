// The charts of a stock and of an index, at any period.
#include "terminal/screens/candles.h"

#include "module/layouts/RICAND11.h"
#include "module/layouts/RSCAND11.h"
#include "terminal/errors.h"
#include "terminal/screens/candle_chart.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/row_list.h"
#include "terminal/text.h"

namespace tools {

namespace {

constexpr std::string_view kPeriodChars = "ABCEGHIJKL";
constexpr char kDefaultPeriod = 'C';
constexpr std::size_t kChartColumns = 60;

// A value that has so many decimals, in its last one.
std::optional<int64_t> ValueOf(std::string_view field, int decimals) {
    std::string digits(Trim(field));
    if (decimals > 0) {
        const std::size_t point = digits.find('.');
        if (point == std::string::npos || point + 1 + static_cast<std::size_t>(decimals) != digits.size()) {
            return std::nullopt;
        }
        digits.erase(point, 1);
    }
    return ParseInteger(digits);
}

template <std::size_t N>
std::string_view TextOf(const char (&field)[N]) {
    return {field, N};
}

// The candles that the module has sent; what the inquiry brought shows once a row takes its place.
template <class Row, int Decimals>
class Chart : public Screen {
public:
    explicit Chart(std::size_t rows) : m_List(RowsTables<HeadedRows, Row>(), rows, kChartColumns) {}

    std::size_t Take(std::string_view buffer) override {
        if (buffer.size() >= sizeof(HeadedRows) &&
            reinterpret_cast<const HeadedRows*>(buffer.data())->Head.RowAction == kUpdateRow) {
            m_List.DropNewest();
        }
        return m_List.Take(buffer);
    }
    std::string Show(std::string_view buffer) const override { return m_List.Show(buffer); }
    std::string Image() const override { return m_List.Image() + ChartText(Candles(), Decimals); }

private:
    // Those that hold values.
    std::vector<Candle> Candles() const {
        std::vector<Candle> candles;
        const std::string_view rows = m_List.Newest(kChartColumns);
        for (std::size_t at = 0; at < rows.size(); at += sizeof(Row)) {
            const Row& row = *reinterpret_cast<const Row*>(rows.data() + at);
            const auto open = ValueOf(TextOf(row.Open), Decimals);
            const auto high = ValueOf(TextOf(row.High), Decimals);
            const auto low = ValueOf(TextOf(row.Low), Decimals);
            const auto close = ValueOf(TextOf(row.Close), Decimals);
            if (open && high && low && close) {
                candles.push_back({std::string(TextOf(row.Time)), *open, *high, *low, *close});
            }
        }
        return candles;
    }

    RowList m_List;
};

template <auto KeyOf, class Row>
InitText MakeInit(std::string_view key, const InitDefaults& defaults) {
    const auto followed = KeyOf(key);
    CandleInit init;
    FillBlank(init);
    PutLeft(init.Key, {reinterpret_cast<const char*>(&followed), sizeof(followed)});
    PutLeft(init.RequestDate, defaults.Date);
    PutLeft(init.Date, defaults.Date);
    init.Head.Period = kDefaultPeriod;
    Row newest;
    FillBlank(newest);
    InitText text;
    text.Append("", init);
    text.AppendRow(newest);
    return text;
}

// Without a field of the row there is no row. One without a date is of the chart's.
void Complete(InitText& text) {
    const std::string_view period = text.Value("Head.Period");
    if (kPeriodChars.find(period) == std::string_view::npos) {
        throw BadInput("period " + Quoted(period) + " is none; give one of " + kPeriodWords);
    }
    constexpr std::size_t kWithoutRow = sizeof(RequestTag) + sizeof(CandleInit) + sizeof(RepeatHead);
    if (Trim(text.Bytes().substr(kWithoutRow)).empty()) {
        text.Set("Repeat.Count", "0");
        text.Cut(kWithoutRow);
    } else if (Trim(text.Value("Row.Date")).empty()) {
        text.Set("Row.Date", std::string(text.Value("Date")));
    }
}

template <class Row, int Decimals>
std::unique_ptr<Screen> Open(const InitText& /*init*/, std::size_t rows) {
    return std::make_unique<Chart<Row, Decimals>>(rows);
}

}  // namespace

const ScreenKind kIndexCandles = {"RICAND11_R",
                                  MakeInit<IndexKeyOf, IndexCandleRow>,
                                  RowsTables<HeadedRows, IndexCandleRow>,
                                  Open<IndexCandleRow, 3>,
                                  "COMP",
                                  Complete};

const ScreenKind kStockCandles = {"RSCAND11_R",
                                  MakeInit<StockKeyOf, StockCandleRow>,
                                  RowsTables<HeadedRows, StockCandleRow>,
                                  Open<StockCandleRow, 0>,
                                  "1ASII",
                                  Complete};

}  // namespace tools
