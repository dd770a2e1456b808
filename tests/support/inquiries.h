// Init texts: what a screen's inquiry answers, with plain defaults.
#ifndef TICKMUX_TESTS_SUPPORT_INQUIRIES_H
#define TICKMUX_TESTS_SUPPORT_INQUIRIES_H

#include <numeric>
#include <string>
#include <vector>

#include "module/layouts/RSETFNAV.h"
#include "module/layouts/RSTICK11.h"
#include "terminal/fields.h"
#include "tests/support/packets.h"
#include "tests/support/text.h"

using Rows = std::vector<std::string>;

// A row, each figure at the right of its column; columns behind the last figure are blank.
template <class Row>
std::string RowOf(const std::vector<std::string>& figures) {
    std::string text;
    auto figure = figures.begin();
    for (const tools::Field& field : tools::FieldsOf<Row>()) {
        text += Right(figure == figures.end() ? "" : *figure++, field.Width);
    }
    return text;
}

inline std::string Joined(const Rows& rows) {
    return std::accumulate(rows.begin(), rows.end(), std::string());
}

// A repeat block: the head, then the rows as they are.
inline std::string Block(const std::string& count, const std::string& size, const std::string& rows = "") {
    return Right(count, 4) + Right(size, 4) + std::string(16, ' ') + rows;
}

inline std::string BlockOf(const Rows& rows, const std::string& size) {
    return Block(std::to_string(rows.size()), size, Joined(rows));
}

// A display head that shows what passes through: every byte that no decoder writes is a dot.
inline std::string Head(const std::string& periodAndAction, const std::string& price = std::string(12, '.'),
                        const std::string& quantity = std::string(15, '.')) {
    return periodAndAction + "." + Right(price, 12) + std::string(12, '.') + Right(quantity, 15) +
           std::string(44, '.');
}

// "1 1ASII ABCD": class, code, and which of the Want bytes are set.
inline std::string Item(char chClass, const std::string& code, const std::string& want) {
    return chClass + Left(code, 11) + Left(want, 8);
}

inline std::string PassThroughInquiry(const Rows& items) {
    return Right(std::to_string(items.size()), 4) + Joined(items);
}

inline std::string IndexBoardInquiry(const Rows& codes, const std::string& size = "134") {
    Rows rows;
    for (const std::string& code : codes) {
        rows.push_back(std::string(130, '.') + Left(code, 4));
    }
    return "B1" + BlockOf(rows, size);
}

inline std::string BookInquiry(const std::string& key, const std::string& block = Block("0", "108")) {
    return "O1" + Left(key, 11) + "unread.." + block;
}

// The rows of an interest board are its stocks' codes.
inline std::string InterestInquiry(const Rows& codes, const std::string& base = "1000") {
    Rows rows;
    for (const std::string& code : codes) {
        rows.push_back("1" + Left(code, 10) + std::string(118, '.') + Right(base, 15) + std::string(34, '.'));
    }
    return "I1 07" + BlockOf(rows, "178");
}

// Numbered fields from one number to another, blank: the two numbers, and how wide the fields are together.
inline std::string PanelInquiry(const std::string& key, const std::string& range, int width) {
    return "P1" + Left(key, 11) + range + std::string(static_cast<std::size_t>(width), ' ');
}

inline std::string PriceTableInquiry(const std::string& key, const Rows& rows = {}) {
    return "V1" + Left(key, 19) + BlockOf(rows, "62");
}

// Of our user. Behind the user field stands the first digit of the order numbers that open orders take.
inline std::string OrdersInquiry(const Rows& rows = {}) {
    return "O1ACC0010" + BlockOf(rows, "171");
}

class TickInquiry {
public:
    explicit TickInquiry(const std::string& key) : m_Key(Left(key, sizeof(StockKey))) {}
    TickInquiry& Tag(const std::string& tag) { return m_Tag = tag, *this; }
    TickInquiry& Dates(const Rows& dates) { return m_Dates = dates, *this; }
    operator std::string() const {  // NOLINT(google-explicit-constructor): stands for its text
        Rows rows;
        for (const std::string& date : m_Dates) {
            rows.push_back(Left(date, sizeof(TickRow)));
        }
        return m_Tag + m_Key + Head("..") + BlockOf(rows, "38");
    }

private:
    std::string m_Tag = "T1";
    std::string m_Key;
    Rows m_Dates = {"20261120"};
};

class CandleInquiry {
public:
    CandleInquiry(const std::string& key, char period) : m_Key(Left(key, 11)), m_Period(1, period) {}
    CandleInquiry& Tag(const std::string& tag) { return m_Tag = tag, *this; }
    CandleInquiry& Dates(const std::string& request, const std::string& chart) {
        return m_RequestDate = request, m_Date = chart, *this;
    }
    CandleInquiry& Figures(const std::string& price, const std::string& quantity) {
        return m_Price = price, m_Quantity = quantity, *this;
    }
    // The newest candle, whole; a second call adds another.
    CandleInquiry& Row(const std::string& row) {
        return m_Rows.push_back(row), m_RowSize = row.size(), *this;
    }
    operator std::string() const {  // NOLINT(google-explicit-constructor): stands for its text
        return m_Tag + m_Key + m_RequestDate + "..." + m_Date + Head(m_Period + ".", m_Price, m_Quantity) +
               BlockOf(m_Rows, std::to_string(m_RowSize));
    }

private:
    std::string m_Tag = "C1";
    std::string m_Key;
    std::string m_Period;
    std::string m_RequestDate = "20261120";
    std::string m_Date = "20261120";
    std::string m_Price = "1000";
    std::string m_Quantity = "500";
    Rows m_Rows;
    std::size_t m_RowSize = 0;
};

class NavInquiry {
public:
    explicit NavInquiry(const std::string& key) {
        std::memcpy(&m_Init.Key, Left(key, sizeof(StockKey)).data(), sizeof(StockKey));
        Base("1000.00").First("1001.25").Second("998.5");
    }
    NavInquiry& Base(const std::string& value) { return Fill(m_Init.BaseValue, value), *this; }
    NavInquiry& First(const std::string& value) { return Fill(m_Init.FirstValue, value), *this; }
    NavInquiry& Second(const std::string& value) { return Fill(m_Init.SecondValue, value), *this; }
    operator std::string() const {  // NOLINT(google-explicit-constructor): stands for its text
        return "N1" + Text(m_Init);
    }

private:
    NavInit m_Init;
};

#endif
