#include "terminal/screens/candle_chart.h"

#include <algorithm>

#include "terminal/text.h"

namespace tools {

namespace {

// The highest and the lowest of its values; a close may lie outside of what the candle calls its range.
int64_t Top(const Candle& candle) {
    return std::max({candle.Open, candle.High, candle.Low, candle.Close});
}

int64_t Bottom(const Candle& candle) {
    return std::min({candle.Open, candle.High, candle.Low, candle.Close});
}

// Lines at round values. A value belongs to the nearest line.
class Scale {
public:
    Scale(int64_t lowest, int64_t highest) {
        constexpr int64_t kMostSteps = 12;
        const int64_t reach = highest - lowest;
        for (int64_t decade = 1; m_nStep * kMostSteps < reach; decade *= 10) {
            for (const int64_t step : {1, 2, 5}) {
                m_nStep = step * decade;
                if (m_nStep * kMostSteps >= reach) {
                    break;
                }
            }
        }
        m_nFirst = Nearest(lowest);
        m_nLines = Nearest(highest) - m_nFirst + 1;
    }

    int64_t Lines() const { return m_nLines; }
    int64_t LineOf(int64_t value) const { return Nearest(value) - m_nFirst; }
    int64_t ValueOf(int64_t line) const { return (m_nFirst + line) * m_nStep; }

private:
    int64_t Nearest(int64_t value) const {
        const int64_t raised = value + m_nStep / 2;
        return raised / m_nStep - (raised % m_nStep < 0 ? 1 : 0);
    }

    int64_t m_nStep = 1;
    int64_t m_nFirst = 0;
    int64_t m_nLines = 0;
};

char MarkAt(const Candle& candle, const Scale& scale, int64_t line) {
    const auto [from, to] = std::minmax({scale.LineOf(candle.Open), scale.LineOf(candle.Close)});
    if (line >= from && line <= to) {
        return candle.Close > candle.Open ? 'o' : candle.Close < candle.Open ? '#' : '-';
    }
    return line >= scale.LineOf(Bottom(candle)) && line <= scale.LineOf(Top(candle)) ? '|' : ' ';
}

std::string ValueText(int64_t value, int decimals) {
    return decimals == 0 ? std::to_string(value) : DecimalText(value, decimals);
}

std::string TimeLine(const std::vector<Candle>& candles) {
    constexpr std::size_t kEvery = 10;  // columns; a time takes eight
    std::string line;
    for (std::size_t column = 0; column < candles.size(); column += kEvery) {
        const std::string& time = candles[column].Time;
        line.resize(column, ' ');
        line += time.substr(0, 2) + ":" + time.substr(2, 2) + ":" + time.substr(4);
    }
    return Printable(line);
}

}  // namespace

std::string ChartText(const std::vector<Candle>& candles, int decimals) {
    if (candles.empty()) {
        return "";
    }
    int64_t lowest = Bottom(candles.front());
    int64_t highest = Top(candles.front());
    for (const Candle& candle : candles) {
        lowest = std::min(lowest, Bottom(candle));
        highest = std::max(highest, Top(candle));
    }
    const Scale scale(lowest, highest);
    const std::size_t width = std::max(ValueText(scale.ValueOf(0), decimals).size(),
                                       ValueText(scale.ValueOf(scale.Lines() - 1), decimals).size());
    std::string text;
    for (int64_t line = scale.Lines() - 1; line >= 0; --line) {
        const std::string value = ValueText(scale.ValueOf(line), decimals);
        std::string marks;
        for (const Candle& candle : candles) {
            marks += MarkAt(candle, scale, line);
        }
        marks.erase(marks.find_last_not_of(' ') + 1);
        text += "  " + std::string(width - value.size(), ' ') + value + " |" + marks + "\n";
    }
    const std::string margin(2 + width + 1, ' ');
    text += margin + "+" + std::string(candles.size(), '-') + "\n";
    return text + margin + " " + TimeLine(candles) + "\n";
}

}  // namespace tools
