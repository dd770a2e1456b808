// The interest board with its alarms.
#ifndef TICKMUX_TESTS_MODEL_RSITST01_H
#define TICKMUX_TESTS_MODEL_RSITST01_H

#include <optional>

#include "tests/model/model.h"

struct RSITST01 : Model {
    using Model::Model;

    struct Row {
        std::string Text;
        std::optional<Settings::mapped_type> Alarm;  // its record, by key
        bool Dirty = false;

        int32_t Long(std::size_t at, std::size_t width) const { return Texts::Long(Text.substr(at, width)); }
        // A figure of the alarm record.
        double Read(const std::string& key, double otherwise = 0) const {
            const bool there = Alarm && Alarm->count(key) != 0 && !Alarm->at(key).empty();
            return there ? Double(Alarm->at(key)) : otherwise;
        }
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
                const std::string number = std::to_string(1001 + Board.size()).substr(1);
                const auto record = In.Alarms.find("ALARM" + text.substr(2, 3) + "-" + number);
                row.Alarm = record == In.Alarms.end() ? Settings::mapped_type() : record->second;
            }
            const double mode = row.Read("price");
            if (bytes[0] == '1' && row.Alarm && (mode == 0 || mode == 1)) {
                row.Text[0] = CheckAlarm(row, {row.Long(13, 12), row.Long(67, 15), row.Long(50, 15)},
                                         row.Long(112, 15));
                row.Dirty = row.Text[0] != '1';
            }
            Board.push_back(row);
        }
        return true;
    }

    // The state, by price, best of side 1, best of side 2, and total volume.
    char CheckAlarm(const Row& row, const std::vector<int32_t>& values, double totalVolume) const {
        const double comparison = row.Read("comparison");
        if (!row.Alarm || comparison < 0 || comparison > 2) {
            return '1';
        }
        const double v = values[static_cast<std::size_t>(comparison)];
        const double basis = row.Read("Basis price");
        const double upper = row.Read("decreased price");
        const double lower = row.Read("increased price", -1);
        const double volume = row.Read("Volume");
        bool met = volume >= 1.0 && totalVolume >= volume;
        if (row.Read("price") == 0) {
            met |= upper >= 1.0 && lower >= 1.0 && (v >= upper || v <= lower);
        } else if (row.Read("price") == 1 && basis >= 1) {
            met |= v >= basis + upper * basis * 0.01 ||
                   v <= (lower == -1.0 ? lower : basis + lower * basis * 0.01);
        }
        return met ? AlarmChar : '1';
    }

    // Null: no such stock.
    Row* FindRow(const StockKey& key) {
        const auto row = std::find_if(Board.begin(), Board.end(), [&](const Row& at) {
            return "1" + at.Text.substr(1, 10) == Text(key);
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
