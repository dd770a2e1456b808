// The order book.
#ifndef TICKMUX_TESTS_MODEL_RSODER01_H
#define TICKMUX_TESTS_MODEL_RSODER01_H

#include "tests/model/model.h"

struct RSODER01 : Model {
    using Model::Model;

    // One side of one of ten levels, or of the totals.
    struct Half {
        int64_t Diff = 0;
        int32_t Qty = 0;
        double Rate = 0.0;
        int32_t Price = 0;
    };
    struct HalfColors {
        std::string Qty = "  ", Rate = "  ", Price = "  ";
    };
    static constexpr std::size_t kTotals = 20;  // the first of the two

    bool OnInit(const std::string& text) override {
        const int count = std::max(CountAt(text, 21, 45), 0);
        const int bytes = text.size() < 45 ? 0 : count * Long(text.substr(25, 4));
        const bool fits =
            text.size() >= 45 && bytes >= 0 && bytes <= 11 * 108 && std::ssize(text) >= 45 + bytes;
        // The image is filled with what can be read, and the levels only with all of it.
        Reserved = text.size() < 45 ? std::string(16, ' ') : text.substr(29, 16);
        const std::string rows = Field(fits ? text.substr(45, static_cast<std::size_t>(bytes)) : "", 1188);
        std::vector<Half> read;
        Colors.clear();
        for (const std::string& half : Split(rows, 0, 54)) {
            const int64_t diff = Long(half.substr(5, 10));
            read.push_back({Wrapped(half[2] == '-' ? -diff : diff), Long(half.substr(17, 15)),
                            Double(half.substr(34, 6)), Long(half.substr(42, 12))});
            Colors.push_back({half.substr(15, 2), half.substr(32, 2), half.substr(40, 2)});
        }
        if (!fits || std::ssize(text) != 45 + bytes) {
            return false;
        }
        Key = text.substr(2, 11);
        Halves = read;
        CurPrice = BasePrice = -1;
        return true;
    }

    bool OnBook(const BookPacket& book) override {
        if (Text(book.Key) != Key) {
            return false;
        }
        // Behind the key and the base: price and quantity of side 1, of side 2, level by level; then two
        // totals.
        std::vector<int32_t> figures(42);
        std::memcpy(figures.data(), &book.Levels, 168);
        BasePrice = book.BasePrice;
        const std::vector<Half> former = Halves;
        for (std::size_t i = 0; i < kTotals; ++i) {
            const int32_t price = figures[2 * i];
            std::size_t same = i % 2;
            while (same < kTotals && former[same].Price != price) {
                same += 2;
            }
            Halves[i].Qty = figures[2 * i + 1];
            Halves[i].Diff = Wrapped(int64_t{Halves[i].Qty} - (same < kTotals ? former[same].Qty : 0));
            Halves[i].Rate = TowardsZero(Rate(static_cast<double>(price) - BasePrice, BasePrice, 0));
            Halves[i].Price = price;
        }
        for (std::size_t i = kTotals; i < Halves.size(); ++i) {
            Halves[i].Qty = figures[kTotals + i];
            Halves[i].Diff = Halves[i].Qty != 0 ? Wrapped(int64_t{Halves[i].Qty} - former[i].Qty) : 0;
        }
        return true;
    }

    bool OnTrade(const TradePacket& trade) override {
        if (!In.UseHogaRect || Text(trade.Key) != Key || trade.Price == CurPrice) {
            return false;
        }
        const int64_t change = int64_t{Direction(trade.Sign)} * trade.Change;
        BasePrice = BasePrice <= 0 ? Wrapped(trade.Price - change) : BasePrice;
        CurPrice = trade.Price;
        return true;
    }

    void OnEndBatch() override {
        std::string body = Printed(11, 4) + Printed(108, 4) + Reserved;
        for (std::size_t i = 0; i < Halves.size(); ++i) {
            const Half& half = Halves[i];
            HalfColors& colors = Colors[i];
            if (BasePrice != -1) {
                colors.Qty = colors.Rate = colors.Price = Color(static_cast<double>(half.Price) - BasePrice);
            }
            const bool marksOther = i % 2 == 1 && Halves[i - 1].Price == CurPrice;
            if (CurPrice > 0 && CurPrice == half.Price && !marksOther) {
                colors.Price[1] = 'z';
            }
            colors.Qty = i < kTotals ? colors.Qty : i == kTotals ? "4 " : "1 ";
            const std::string color = Color(static_cast<double>(half.Diff));
            const char sign = half.Diff > 0 ? '+' : half.Diff < 0 ? '-' : ' ';
            body += color + sign + color + Printed(std::abs(half.Diff), 10) + colors.Qty +
                    Printed(half.Qty, 15) + colors.Rate + Printed(half.Rate, 6, 2) + colors.Price +
                    Printed(half.Price, 12);
        }
        Sent.push_back(Tag + body);
        Changed = false;
    }

    std::string Key, Reserved;
    std::vector<Half> Halves = std::vector<Half>(22);  // side 1 and side 2 of level 0, of level 1 ...
    std::vector<HalfColors> Colors;                    // as they were last written
    int32_t CurPrice = -1, BasePrice = -1;             // -1: none came
};

#endif
