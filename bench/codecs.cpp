// The field codecs beside the formatted print and the C library's scans, and beside std::to_chars and
// std::from_chars.

#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <memory>

#include "bench/competent/codecs.h"
#include "bench/plain/codecs.h"
#include "bench/support/question.h"
#include "module/wire/codecs.h"
#include "tests/support/market.h"

namespace {

constexpr int64_t kValues = 4096;

template <class Value>
using Values = std::vector<Value>;

template <class Value, class Make>
Values<Value> Made(Make make) {
    Market market(1);
    Values<Value> values;
    for (int64_t i = 0; i < kValues; ++i) {
        values.push_back(make(market));
    }
    return values;
}

// A pass over values: `one` puts each into the field, or reads it from there.
template <class Value, class One>
std::function<void()> Pass(const Values<Value>& values, One one) {
    return [values, one] {
        char field[32];
        for (const Value& value : values) {
            one(value, field);
            benchmark::DoNotOptimize(field);
        }
    };
}

using Text = std::array<char, 32>;

template <class Value, class One>
std::vector<Text> TextsOf(const Values<Value>& values, One one) {
    std::vector<Text> texts(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        one(values[i], texts[i].data());
    }
    return texts;
}

// All ways must give the same text for all values. `other` is told whose codecs it takes.
template <class Value, class Other, class Module>
bench::Question Ask(const std::string& what, double aim, const Values<Value>& values, Other other,
                    Module module) {
    const auto plainly = [other](const Value& value, char* field) { other(plain::Codecs(), value, field); };
    const auto competently = [other](const Value& value, char* field) {
        other(competent::Codecs(), value, field);
    };
    const std::vector<Text> texts = TextsOf(values, module);
    if (TextsOf(values, plainly) != texts || TextsOf(values, competently) != texts) {
        bench::Differ(what);
    }
    return {what, {aim}, kValues, Pass(values, module), Pass(values, plainly), Pass(values, competently)};
}

// What a field of so many characters is to a codec that knows its width.
template <std::size_t N>
auto& Field(char* field) {  // NOLINT(readability-non-const-parameter): the codec writes there
    return *reinterpret_cast<char(*)[N]>(field);
}

struct WideInteger {
    int32_t Value;
    int Length;
};

// Prices and volumes, and the widths of the fields that show them.
int32_t PriceOrVolume(Market& market) {
    return market.Below(2) == 0 ? market.Price()
                                : static_cast<int32_t>(market.Below(20) == 0 ? market.Below(2'000'000'000)
                                                                             : market.Below(90'000'000));
}

int WidthOf(Market& market) {
    constexpr int kWidths[] = {12, 12, 12, 15, 15, 15, 9, 10};
    return kWidths[market.Below(8)];
}

struct NumberText {
    char Text[24];
    int Length;
};

NumberText MakeText(int32_t value, int length) {
    NumberText text{};
    plain::Codecs::LongToAscii(value, text.Text, length);
    text.Length = length;
    return text;
}

template <class Result>
void Keep(Result result, char* field) {
    std::memcpy(field, &result, sizeof(result));
}

}  // namespace

int main(int argc, char** argv) {
    const auto mixed = Made<WideInteger>([](Market& market) {
        return WideInteger{PriceOrVolume(market), WidthOf(market)};
    });
    const auto integers = Made<int32_t>(PriceOrVolume);
    const auto totals = Made<int64_t>([](Market& market) {
        return int64_t{market.Below(1'000'000'000)} * market.Below(1'000'000) >> market.Below(12);
    });
    const auto indices = Made<double>(
        [](Market& market) { return static_cast<int32_t>(1'000'000 + market.Below(89'000'000)) / 10000.0; });
    const auto rates = Made<double>([](Market& market) {
        const double rate = (static_cast<double>(market.Below(60'000)) - 30'000) / 1000.0;
        return rate > 0 ? rate - 0.00499 : rate + 0.00499;
    });
    const auto texts =
        Made<NumberText>([](Market& market) { return MakeText(PriceOrVolume(market), WidthOf(market)); });
    const auto texts12 = Made<NumberText>([](Market& market) { return MakeText(PriceOrVolume(market), 12); });
    const auto decimals = Made<NumberText>([](Market& market) {
        NumberText text{};
        text.Length = 12;
        plain::Codecs::DoubleToAscii(market.Number(90'000'000) / 10000.0, text.Text, 12,
                                     market.Below(2) == 0 ? 2 : 4);
        return text;
    });

    const std::vector<bench::Question> questions = {
        Ask(
            "LongToAscii, length at run time", 10, mixed,
            [](auto codecs, const WideInteger& v, char* field) {
                codecs.LongToAscii(v.Value, field, v.Length);
            },
            [](const WideInteger& v, char* field) { LongToAscii(v.Value, field, v.Length); }),
        Ask(
            "the same, width 12 known", 13, integers,
            [](auto codecs, int32_t v, char* field) { codecs.LongToAscii(v, field, 12); },
            [](int32_t v, char* field) { Put(Field<12>(field), v); }),
        Ask(
            "Int64ToAscii, width 15", 15, totals,
            [](auto codecs, int64_t v, char* field) { codecs.Int64ToAscii(v, field, 15); },
            [](int64_t v, char* field) { Put(Field<15>(field), v); }),
        Ask(
            "Int64ToAscii, width 18", 15, totals,
            [](auto codecs, int64_t v, char* field) { codecs.Int64ToAscii(v, field, 18); },
            [](int64_t v, char* field) { Put(Field<18>(field), v); }),
        Ask(
            "DoubleToAscii, 12 wide, 4 decimals", 25, indices,
            [](auto codecs, double v, char* field) { codecs.DoubleToAscii(v, field, 12, 4); },
            [](double v, char* field) { Put<4>(Field<12>(field), v); }),
        Ask(
            "DoubleToAscii, 15 wide, 4 decimals", 25, indices,
            [](auto codecs, double v, char* field) { codecs.DoubleToAscii(v, field, 15, 4); },
            [](double v, char* field) { Put<4>(Field<15>(field), v); }),
        Ask(
            "DoubleToAscii, 6 wide, 2 decimals", 18, rates,
            [](auto codecs, double v, char* field) { codecs.DoubleToAscii(v, field, 6, 2); },
            [](double v, char* field) { Put<2>(Field<6>(field), v); }),
        Ask(
            "AsciiToLong, lengths mixed", 4, texts,
            [](auto codecs, const NumberText& t, char* field) {
                Keep(codecs.AsciiToLong(t.Text, t.Length), field);
            },
            [](const NumberText& t, char* field) { Keep(AsciiToLong(t.Text, t.Length), field); }),
        Ask(
            "AsciiToLong, width 12 known", 8, texts12,
            [](auto codecs, const NumberText& t, char* field) {
                Keep(codecs.AsciiToLong(t.Text, 12), field);
            },
            [](const NumberText& t, char* field) {
                Keep(ToLong(*reinterpret_cast<const char(*)[12]>(t.Text)), field);
            }),
        Ask(
            "AsciiToDouble, 12 wide", 5, decimals,
            [](auto codecs, const NumberText& t, char* field) {
                Keep(codecs.AsciiToDouble(t.Text, 12), field);
            },
            [](const NumberText& t, char* field) { Keep(AsciiToDouble(t.Text, 12), field); }),
    };
    return bench::Ask(argc, argv, questions);
}
