// Init texts: what a screen's inquiry answers, with plain defaults.
#ifndef TICKMUX_TESTS_SUPPORT_INQUIRIES_H
#define TICKMUX_TESTS_SUPPORT_INQUIRIES_H

#include <string>
#include <vector>

#include "layouts/RSETFNAV.h"
#include "layouts/RSTICK11.h"
#include "tests/support/fields.h"
#include "tests/support/packets.h"

// A repeat block: the head, then the rows as they are.
inline std::string Block(const std::string& count, const std::string& size, const std::string& rows = "") {
    return Right(count, 4) + Right(size, 4) + std::string(16, ' ') + rows;
}

// A display head that shows what passes through: every byte that no decoder writes is a dot.
inline std::string Head(const std::string& periodAndAction, const std::string& price = std::string(12, '.'),
                        const std::string& quantity = std::string(15, '.')) {
    return periodAndAction + "." + Right(price, 12) + std::string(12, '.') + Right(quantity, 15) +
           std::string(44, '.');
}

class TickInquiry {
public:
    explicit TickInquiry(const std::string& key) : m_Key(Left(key, sizeof(StockKey))) {}
    TickInquiry& Tag(const std::string& tag) { return m_Tag = tag, *this; }
    TickInquiry& Date(const std::string& date) { return m_Dates = {date}, *this; }
    TickInquiry& Dates(const std::vector<std::string>& dates) { return m_Dates = dates, *this; }
    operator std::string() const {  // NOLINT(google-explicit-constructor): stands for its text
        std::string rows;
        for (const std::string& date : m_Dates) {
            rows += Left(date, sizeof(TickRow));
        }
        return m_Tag + m_Key + Head("..") + Block(std::to_string(m_Dates.size()), "38", rows);
    }

private:
    std::string m_Tag = "T1";
    std::string m_Key;
    std::vector<std::string> m_Dates = {"20261120"};
};

class CandleInquiry {
public:
    CandleInquiry(const std::string& key, char period) : m_Key(Left(key, 11)), m_Period(1, period) {}
    CandleInquiry& Dates(const std::string& request, const std::string& chart) {
        return m_RequestDate = request, m_Date = chart, *this;
    }
    CandleInquiry& Figures(const std::string& price, const std::string& quantity) {
        return m_Price = price, m_Quantity = quantity, *this;
    }
    // The newest candle, whole; a second call adds another.
    CandleInquiry& Row(const std::string& row) {
        return m_Rows += row, m_RowSize = row.size(), ++m_RowCount, *this;
    }
    operator std::string() const {  // NOLINT(google-explicit-constructor): stands for its text
        return "C1" + m_Key + m_RequestDate + "..." + m_Date + Head(m_Period + ".", m_Price, m_Quantity) +
               Block(std::to_string(m_RowCount), std::to_string(m_RowSize), m_Rows);
    }

private:
    std::string m_Key;
    std::string m_Period;
    std::string m_RequestDate = "20261120";
    std::string m_Date = "20261120";
    std::string m_Price = "1000";
    std::string m_Quantity = "500";
    std::string m_Rows;
    std::size_t m_RowSize = 0;
    int m_RowCount = 0;
};

class NavInquiry {
public:
    explicit NavInquiry(const std::string& key) : m_Key(Left(key, sizeof(StockKey))) {}
    NavInquiry& Tag(const std::string& tag) { return m_Tag = tag, *this; }
    NavInquiry& Base(const std::string& value) { return m_Base = value, *this; }
    NavInquiry& First(const std::string& value) { return m_First = value, *this; }
    NavInquiry& Second(const std::string& value) { return m_Second = value, *this; }
    operator std::string() const {  // NOLINT(google-explicit-constructor): stands for its text
        return m_Tag + m_Key + Left(m_Base, 17) + Left(m_First, 22) + Left(m_Second, 22);
    }

private:
    std::string m_Tag = "N1";
    std::string m_Key;
    std::string m_Base = "1000.00";
    std::string m_First = "1001.25";
    std::string m_Second = "998.5";
};

#endif
