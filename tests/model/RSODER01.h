// The order book.
#ifndef TICKMUX_TESTS_MODEL_RSODER01_H
#define TICKMUX_TESTS_MODEL_RSODER01_H

#include "tests/model/model.h"

struct RSODER01 : Model {
    explicit RSODER01(const World& world) : Model(world), UseHogaRect(world.UseHogaRect) {}

    // One side of one of ten levels, or of the totals; the tags stand as they were last written.
    struct Half {
        int64_t Diff = 0;
        int32_t Qty = 0;
        double Rate = 0.0;
        int32_t Price = 0;
        std::string QtyColor = "  ", RateColor = "  ", PriceColor = "  ";
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
        for (const std::string& half : Split(rows, 0, 54)) {
            const auto figure = [&](std::size_t at, std::size_t width) {
                return Long(half.substr(at, width));
            };
            read.push_back({Wrapped(int64_t{figure(5, 10)} * (half[2] == '-' ? -1 : 1)), figure(17, 15),
                            Double(half.substr(34, 6)), figure(42, 12), half.substr(15, 2),
                            half.substr(32, 2), half.substr(40, 2)});
        }
        for (std::size_t i = 0; i < Halves.size(); ++i) {
            Halves[i].QtyColor = read[i].QtyColor, Halves[i].RateColor = read[i].RateColor,
            Halves[i].PriceColor = read[i].PriceColor;
        }
        if (!fits || std::ssize(text) != 45 + bytes) {
            return false;
        }
        Key = text.substr(2, 11);
        Halves = read;
        CurPrice = BasePrice = -1;
        return true;
    }
    void Release() override { Model::Release(), Key.assign(11, ' '); }

    bool OnBook(const BookPacket& book) override {
        if (Whole(book.Key) != Key) {
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
        if (!UseHogaRect || Whole(trade.Key) != Key || trade.Price == CurPrice) {
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
            Half& half = Halves[i];
            if (BasePrice != -1) {
                half.QtyColor = half.RateColor = half.PriceColor =
                    Color(static_cast<double>(half.Price) - BasePrice);
            }
            const bool marksOther = i % 2 == 1 && Halves[i - 1].Price == CurPrice;
            if (UseHogaRect && CurPrice > 0 && CurPrice == half.Price && !marksOther) {
                half.PriceColor[1] = 'z';
            }
            half.QtyColor = i < kTotals ? half.QtyColor : i == kTotals ? "4 " : "1 ";
            body += Color(static_cast<double>(half.Diff)) +
                    (half.Diff > 0   ? "+"
                     : half.Diff < 0 ? "-"
                                     : " ") +
                    Color(static_cast<double>(half.Diff)) + Printed(std::abs(half.Diff), 10) + half.QtyColor +
                    Printed(half.Qty, 15) + half.RateColor + Printed(half.Rate, 6, 2) + half.PriceColor +
                    Printed(half.Price, 12);
        }
        Sent.push_back(Tag + body);
        Changed = false;
    }

    const bool UseHogaRect;
    std::string Key = std::string(11, ' '), Reserved;
    std::vector<Half> Halves = std::vector<Half>(22);  // side 1 and side 2 of level 0, of level 1 ...
    int32_t CurPrice = -1, BasePrice = -1;             // -1: none came
};

#endif
