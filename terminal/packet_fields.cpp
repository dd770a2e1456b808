#include "terminal/packet_fields.h"

#include "terminal/code_page.h"
#include "terminal/text.h"

namespace tools {

namespace {

constexpr std::size_t kLineWidth = 110;

template <class Packet>
LayoutTable PacketTable() {
    std::vector<Field> fields = FieldsOf<Packet>(1);
    fields.insert(fields.begin(), {"Type", 0, 1});
    return {std::string(1, Packet::kType) + " packet", 0, 1 + sizeof(Packet), std::move(fields)};
}

template <class Integer>
std::string NumberText(std::string_view bytes) {
    Little<Integer> number;
    std::memcpy(&number, bytes.data(), sizeof(number));
    return std::to_string(static_cast<Integer>(number));
}

std::string ValueText(const Field& field, std::string_view packet) {
    const std::string_view bytes = field.Of(packet);
    if (!field.IsNumber) {
        return ShownText(Trim(bytes));
    }
    return field.Width == sizeof(int64_t) ? NumberText<int64_t>(bytes) : NumberText<int32_t>(bytes);
}

// "Rows3" of "Rows3.Broker1"; nothing for a field that is in no row.
std::string_view RowOf(std::string_view name) {
    const std::string_view row = name.substr(0, std::min(name.find('.'), name.size()));
    return row.size() < name.size() && row.back() >= '0' && row.back() <= '9' ? row : "";
}

}  // namespace

const std::vector<LayoutTable>& PassedPackets() {
    static const std::vector<LayoutTable> tables = {
        PacketTable<TradePacket>(),  PacketTable<BookPacket>(),   PacketTable<BrokerPacket>(),
        PacketTable<BarPacket>(),    PacketTable<IndexPacket>(),  PacketTable<IndexBarPacket>(),
        PacketTable<MarketPacket>(), PacketTable<NavPacket>(),    PacketTable<NewsPacket>(),
        PacketTable<OrderPacket>(),  PacketTable<SpecialPacket>()};
    return tables;
}

std::string PacketLines(const LayoutTable& layout, std::string_view packet) {
    std::string text;
    std::string line;
    std::string_view row;
    for (const Field& field : layout.Fields) {
        const std::string value = ValueText(field, packet);
        if (value.empty() && field.IsReserved()) {
            continue;
        }
        const bool inNext = RowOf(field.Name) != row;
        row = RowOf(field.Name);
        const std::string name = row.empty() ? field.Name : field.Name.substr(row.size() + 1);
        const std::string word = "  " + name + "=" + value;
        if (inNext || ShownWidth(line) + ShownWidth(word) > kLineWidth) {
            text += line + "\n";
            line = row.empty() ? "" : "  " + std::string(row);
        }
        line += word;
    }
    return text + line + "\n";
}

}  // namespace tools
