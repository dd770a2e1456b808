#include "feed/news.h"

#include <iterator>

namespace tools {

namespace {

constexpr uint64_t kNewsDice = 0x4EA5;

// A title's @ stands for the code of a stock, its # for a number.
struct Template {
    const char* Category;
    const char* Title;
};
constexpr Template kTemplates[] = {
    {"10", "All-stock index up # points since the opening"},
    {"11", "주가 지수가 #포인트 올랐다"},
    {"12", "Main index little changed after # minutes"},
    {"20", "Orders of # customers settled without delay"},
    {"21", "@ opens a second plant"},
    {"21", "@ names a new head of sales"},
    {"21", "@ 거래가 어제보다 #% 늘었다"},
    {"22", "@ halts a line for # hours"},
    {"22", "오늘 오후 @ 새 공장이 문을 연다"},
    {"23", "Talk of a large order for @"},
    {"24", "# stocks at their highest of the day"},
    {"24", "시장은 조용하게 하루를 시작했다"},
    {"25", "Makers of bricks expect # per cent more this year"},
    {"26", "Harbours report # ships more than a year ago, and half of them carry grain, timber and salt"},
    {"27", "The exchange's library is open until # past five"},
    {"30", "Rain in the afternoon, # degrees"},
    {"90", "What moved @ this week"},
    {"91", "다음 달 전망: # 가지 질문"},
};

// As the template has it, with code and number in.
std::string TitleOf(std::string_view form, const std::string& code, int64_t number) {
    std::string title;
    for (const char letter : form) {
        title += letter == '@' ? code : letter == '#' ? std::to_string(number) : std::string(1, letter);
    }
    return title;
}

}  // namespace

NewsWire::NewsWire(const std::vector<Stock>& stocks, uint64_t seed, int percent)
    : m_Stocks(stocks), m_nPercent(percent), m_Dice(seed + kNewsDice) {}

std::optional<Headline> NewsWire::Next() {
    constexpr int kPercentIndented = 6;
    constexpr int64_t kMostBlanks = 4;
    if (!m_Dice.Chance(m_nPercent)) {
        return std::nullopt;
    }
    const Template& form = kTemplates[m_Dice.Below(std::size(kTemplates))];
    const Stock& stock =
        m_Stocks[static_cast<std::size_t>(m_Dice.Below(static_cast<int64_t>(m_Stocks.size())))];
    const int64_t number = m_Dice.Between(2, 40);
    const bool isIndented = m_Dice.Chance(kPercentIndented);
    const std::size_t blanks = isIndented ? static_cast<std::size_t>(m_Dice.Between(1, kMostBlanks)) : 0;
    const std::string_view title = form.Title;
    const bool hasStock = title.find('@') != std::string_view::npos;
    return Headline{++m_nHeadlines, form.Category, hasStock ? &stock : nullptr,
                    std::string(blanks, ' ') + TitleOf(title, stock.Code, number)};
}

}  // namespace tools
