// Reference forms of the maps whose state is hard: what a screen sends, written for reading. They share
// nothing with the module but its packets; rows are put together from left to right, as the screen shows
// them.
#ifndef TICKMUX_TESTS_MODEL_MODEL_H
#define TICKMUX_TESTS_MODEL_MODEL_H

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "module/wire/packets.h"
#include "tests/support/text.h"

using Rows = std::vector<std::string>;

// Figures as text, and back.
struct Texts {
    // Right-aligned; a wider figure keeps its first characters.
    static std::string Printed(int64_t value, std::size_t width) {
        char text[32];
        std::snprintf(text, sizeof(text), "%*" PRId64, static_cast<int>(width), value);
        return std::string(text).substr(0, width);
    }
    static std::string Printed(double value, std::size_t width, int decimals) {
        char text[400];
        std::snprintf(text, sizeof(text), "%*.*f", static_cast<int>(width), decimals, value);
        return std::string(text).substr(0, width);
    }
    static int64_t Figure(const std::string& text) { return std::strtoll(text.c_str(), nullptr, 10); }
    static int32_t Long(const std::string& text) {
        return static_cast<int32_t>(std::clamp<int64_t>(Figure(text), INT32_MIN, INT32_MAX));
    }
    static double Double(const std::string& text) {
        char* end = nullptr;
        const double value = std::strtod(text.c_str(), &end);
        return end == text.c_str() ? 0.0 : value;  // not every C library gives +0 for what is no number
    }
    static int32_t Wrapped(int64_t value) { return static_cast<int32_t>(value); }  // sums of 32 bits run over

    static std::string Trimmed(const std::string& text) {
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }
    static std::string Field(std::string text, std::size_t width) { return text.resize(width, ' '), text; }
    // A packet's field up to a zero byte, or with nothing but zero bytes from there on.
    template <class Bytes>
    static std::string Ended(const Bytes& field) {
        return Text(field).substr(0, Text(field).find('\0'));
    }
    template <class Bytes>
    static std::string Copied(const Bytes& field) {
        std::string text = Ended(field);
        return text.resize(sizeof(field)), text;
    }

    // The rows of an inquiry from there on, and its figures; a count that is not there is below zero.
    static Rows Split(const std::string& text, std::size_t at, std::size_t size) {
        Rows rows;
        for (; at < text.size(); at += size) {
            rows.push_back(text.substr(at, size));
        }
        return rows;
    }
    static int CountAt(const std::string& text, std::size_t at, std::size_t least) {
        return text.size() < least ? -1 : Long(text.substr(at, 4));
    }
    static bool IsSize(const std::string& text, std::size_t head, int count, std::size_t size) {
        return count >= 0 && text.size() == head + static_cast<std::size_t>(count) * size;
    }

    static int Direction(char sign) {
        return sign >= '1' && sign <= '4' ? 1 : sign >= '5' && sign <= '8' ? -1 : 0;
    }
    static std::string Color(double direction) { return direction > 0 ? "1 " : direction < 0 ? "4 " : "5 "; }
    // Per cent of a base, moved towards zero by the direction of a sign, or by its own.
    static double Rate(double change, double base, int direction) {
        return base == 0 ? 0.0 : change / base * 100.0 - direction * 0.00499;
    }
    static double TowardsZero(double rate) { return rate - (rate > 0 ? 0.00499 : rate < 0 ? -0.00499 : 0.0); }
};

// Settings by section and key; empty where one is missing.
using Settings = std::map<std::string, std::map<std::string, std::string>>;
inline std::string Setting(const Settings& settings, const std::string& section, const std::string& key) {
    const auto keys = settings.find(section);
    return keys != settings.end() && keys->second.count(key) != 0 ? keys->second.at(key) : "";
}

// What screens read beside their inquiry.
struct World {
    std::string UserId;  // 19 characters
    char MenuGrade = '1';
    uint32_t TickCount = 0;
    Settings Alarms, Monitor;
    bool UseHogaRect = true;
    bool OwnIndustry = false;
};

struct Model : Texts {
    explicit Model(const World& world) : In(world) {}
    virtual ~Model() = default;
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    bool Init(const std::string& text) {
        Stopped = false;
        Tag = (text + std::string(2, '\0')).substr(0, 2);
        return Active = OnInit(text);
    }
    void Stop() { Release(), Stopped = true; }
    void Release() { Active = Changed = false, Forget(); }
    void Packet(const std::string& packet) {
        Changed |=
            Active && !Stopped &&
            (Take(packet, &Model::OnTrade) || Take(packet, &Model::OnBook) || Take(packet, &Model::OnBar) ||
             Take(packet, &Model::OnIndex) || Take(packet, &Model::OnIndexBar) ||
             Take(packet, &Model::OnCompactTrade) || Take(packet, &Model::OnNotice));
    }
    void EndBatch() { Changed && !Stopped ? OnEndBatch() : void(); }
    // The buffers that have left since the last call.
    Rows TakeSent() { return std::exchange(Sent, {}); }

    // True: the map is active.
    virtual bool OnInit(const std::string& text) = 0;
    // What a later inquiry would else find.
    virtual void Forget() {}
    // True: the display has to be refreshed.
    virtual bool OnTrade(const TradePacket& /*trade*/) { return false; }
    virtual bool OnBook(const BookPacket& /*book*/) { return false; }
    virtual bool OnBar(const BarPacket& /*bar*/) { return false; }
    virtual bool OnIndex(const IndexPacket& /*index*/) { return false; }
    virtual bool OnIndexBar(const IndexBarPacket& /*bar*/) { return false; }
    virtual bool OnCompactTrade(const CompactTradePacket& /*trade*/) { return false; }
    virtual bool OnNotice(const OrderPacket& /*notice*/) { return false; }
    virtual void OnEndBatch() { SendRows("", TakeChanged()), Changed = false; }
    virtual Rows TakeChanged() { return {}; }

    template <class Type>
    bool Take(const std::string& packet, bool (Model::*handler)(const Type&)) {
        return packet[0] == Type::kType && packet.size() == 1 + sizeof(Type) &&
               (this->*handler)(*reinterpret_cast<const Type*>(packet.data() + 1));
    }
    // What stands in front, a repeat head and the rows; no rows, no buffer.
    void SendRows(const std::string& front, const Rows& rows) {
        if (!rows.empty()) {
            Sent.push_back(Tag + front + Printed(std::ssize(rows), 4) + Printed(std::ssize(rows[0]), 4) +
                           std::string(16, ' '));
        }
        for (const std::string& row : rows) {
            Sent.back() += row;
        }
    }

    const World& In;
    bool Active = false, Stopped = true, Changed = false;
    std::string Tag;
    Rows Sent;
};

#endif
