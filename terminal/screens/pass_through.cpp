// The pass-through: whole packets of some codes and types, without a request tag.
#include <algorithm>
#include <map>

#include "module/layouts/RRPASS01.h"
#include "terminal/errors.h"
#include "terminal/packet_fields.h"
#include "terminal/screens/kinds.h"
#include "terminal/screens/subscription_items.h"

namespace tools {

namespace {

InitText MakeInit(std::string_view key, const InitDefaults& /*defaults*/) {
    std::string types;
    for (const LayoutTable& packet : PassedPackets()) {
        types += packet.Title.front();
    }
    const std::vector<SubscriptionItem> items = ItemsOf(key, types);
    PassInit init;
    PutDigits(init.Count, static_cast<int64_t>(items.size()));
    InitText text = InitText::WithoutTag();
    text.Append("", init);
    AppendRows(text, items, kItemName);
    return text;
}

// Null: no packet, or none of a known length.
const LayoutTable* FindPacket(std::string_view buffer) {
    const std::vector<LayoutTable>& packets = PassedPackets();
    const auto found = std::find_if(packets.begin(), packets.end(), [buffer](const LayoutTable& packet) {
        return packet.Size == buffer.size() && packet.Title.front() == buffer.front();
    });
    return found == packets.end() ? nullptr : &*found;
}

// Of each type it shows the newest packet.
class PassThrough : public Screen {
public:
    std::size_t Take(std::string_view buffer) override {
        const LayoutTable* const packet = FindPacket(buffer);
        if (packet == nullptr) {
            throw Failure("a buffer of " + Counted(buffer.size(), "byte") + " that begins with " +
                          Quoted(buffer.substr(0, 1)) + ", which is no packet");
        }
        Seen& seen = m_Seen[packet];
        seen.Newest = buffer;
        ++seen.Count;
        return 0;
    }
    std::string Show(std::string_view buffer) const override {
        return PacketLines(*FindPacket(buffer), buffer);
    }
    std::string Image() const override {
        std::string text;
        for (const auto& [packet, seen] : m_Seen) {
            text += "  " + Counted(seen.Count, packet->Title) + (seen.Count == 1 ? ":" : ", the newest:") +
                    "\n" + PacketLines(*packet, seen.Newest);
        }
        return text;
    }

private:
    struct Seen {
        std::string Newest;
        uint64_t Count = 0;
    };

    std::map<const LayoutTable*, Seen> m_Seen;  // in the types' order, which is that of their tables
};

std::unique_ptr<Screen> Open(const InitText& /*init*/, std::size_t /*rows*/) {
    return std::make_unique<PassThrough>();
}

}  // namespace

const ScreenKind kPassThrough = {"RRPASS01_R", MakeInit, [] { return PassedPackets(); }, Open, "1ASII:A"};

}  // namespace tools
