// The interest board with its alarms.
#ifndef TICKMUX_TESTS_MODEL_RSITST01_H
#define TICKMUX_TESTS_MODEL_RSITST01_H

#include <optional>

#include "tests/model/model.h"

struct RSITST01 : Model {
    using Model::Model;

    struct Alarm {
        int32_t BasisPrice, Comparison, PriceMode;
        double DecreasedPrice, IncreasedPrice, VolumeLimit;
    };
    struct Row {
        std::string Text;
        std::optional<Alarm> Record;
        bool Dirty = false;

        int32_t Long(std::size_t at, std::size_t width) const { return Texts::Long(Text.substr(at, width)); }
        // A price against the row's base.
        std::string Priced(int32_t price) const {
            return Texts::Color(static_cast<double>(price) - Long(129, 15)) + Texts::Printed(price, 15);
        }
    };

    bool OnInit(const std::string& text) override {
        Board.clear();
        const int count = CountAt(text, 5, 29);
        if (count < 1 || count > 200 || !IsSize(text, 29, count, 178) || Long(text.substr(9, 4)) != 178) {
            return false;
        }
        AlarmChar = Long(Setting(In.Alarms, "ALL_FOCUS_GROUP", "ALARMSOUND")) != 0 ? '2' : '3';
        for (const std::string& bytes : Split(text, 29, 178)) {
            Row row{bytes, {}};
            if ((bytes[0] == '1' || bytes[0] == '2') && Board.size() < 50) {
                row.Record = LoadAlarm(text.substr(2, 3), Board.size() + 1);
            }
            if (bytes[0] == '1' && row.Record && (row.Record->PriceMode == 0 || row.Record->PriceMode == 1)) {
                row.Text[0] = CheckAlarm(row, {row.Long(13, 12), row.Long(67, 15), row.Long(50, 15)},
                                         row.Long(112, 15));
                row.Dirty = row.Text[0] != '1';
            }
            Board.push_back(row);
        }
        return true;
    }
    void Stop() override { Model::Stop(), Board.clear(); }
    void Release() override { Model::Release(), Board.clear(); }

    Alarm LoadAlarm(const std::string& group, std::size_t number) const {
        const std::string digits = std::to_string(1000 + number).substr(1);
        const auto read = [&](const char* key) {
            return Setting(In.Alarms, "ALARM" + group + "-" + digits, key);
        };
        const std::string increased = read("increased price");
        return {Long(read("Basis price")),
                Long(read("comparison")),
                Long(read("price")),
                Double(read("decreased price")),
                increased.empty() ? -1.0 : Double(increased),
                Double(read("Volume"))};
    }

    // The state, by price, best of side 1, best of side 2, and total volume.
    char CheckAlarm(const Row& row, const std::vector<int32_t>& values, double totalVolume) const {
        if (!row.Record || row.Record->Comparison < 0 || row.Record->Comparison > 2) {
            return '1';
        }
        const Alarm& alarm = *row.Record;
        const double v = values[static_cast<std::size_t>(alarm.Comparison)];
        const auto moved = [&](double percent) {
            return alarm.BasisPrice + percent * alarm.BasisPrice * 0.01;
        };
        const bool applies = alarm.PriceMode == 0 ? alarm.DecreasedPrice >= 1.0 && alarm.IncreasedPrice >= 1.0
                             : alarm.PriceMode == 1 ? alarm.BasisPrice >= 1
                                                    : false;
        const double upper = alarm.PriceMode == 0 ? alarm.DecreasedPrice : moved(alarm.DecreasedPrice);
        const double lower = alarm.PriceMode == 0 || alarm.IncreasedPrice == -1.0
                                 ? alarm.IncreasedPrice
                                 : moved(alarm.IncreasedPrice);
        const bool met = (applies && (v >= upper || v <= lower)) ||
                         (alarm.VolumeLimit >= 1.0 && totalVolume >= alarm.VolumeLimit);
        return met ? AlarmChar : '1';
    }

    // Null: no such stock.
    Row* FindRow(const StockKey& key) {
        const auto row = std::find_if(Board.begin(), Board.end(), [&](const Row& at) {
            return "1" + at.Text.substr(1, 10) == Whole(key);
        });
        return row == Board.end() ? nullptr : &*row;
    }

    bool OnTrade(const TradePacket& trade) override {
        Row* row = FindRow(trade.Key);
        if (row == nullptr) {
            return false;
        }
        std::string& text = row->Text;
        if (text[0] >= '1' && text[0] <= '3') {
            text[0] = CheckAlarm(*row, {trade.Price, trade.Best1Price, trade.Best2Price}, trade.TotalVolume);
        }
        const double base = row->Long(129, 15);
        const int direction = Direction(trade.Sign);
        text = text.substr(0, 11) + Color(direction) + Printed(trade.Price, 12) + trade.Sign +
               Color(direction) + Printed(trade.Change, 9) + Color(direction) +
               Printed(Rate(trade.Price - base, base, direction), 9, 2) + row->Priced(trade.Best2Price) +
               row->Priced(trade.Best1Price) + text.substr(82, 30) + Printed(trade.TotalVolume, 15) +
               text.substr(127, 17) + row->Priced(trade.High) + row->Priced(trade.Low);
        return row->Dirty = true;
    }
    bool OnBook(const BookPacket& book) override {
        Row* row = FindRow(book.Key);
        if (row == nullptr) {
            return false;
        }
        const PacketLevel& best = book.Levels[0];
        row->Text = row->Text.substr(0, 48) + row->Priced(best.Side2Price) + row->Priced(best.Side1Price) +
                    Printed(best.Side2Qty, 15) + Printed(best.Side1Qty, 15) + row->Text.substr(112);
        return row->Dirty = true;
    }

    Rows TakeChanged() override {
        Rows rows;
        for (Row& row : Board) {
            rows.resize(rows.size() + (row.Dirty ? 1 : 0), row.Text);
            row.Dirty = false;
        }
        return rows;
    }

    std::vector<Row> Board;
    char AlarmChar = '3';
};

#endif
