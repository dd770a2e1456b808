// Pass-through: packets as they come, of the codes and types that the window names.
//
// Takes packets of all types but R; sends each one that passes by itself at the batch end, in order of
// arrival.
#ifndef TICKMUX_MODULE_DECODERS_PASSING_CRRPASS01_H
#define TICKMUX_MODULE_DECODERS_PASSING_CRRPASS01_H

#include "module/containers/key_index.h"
#include "module/containers/plain_queue.h"
#include "module/decoders/passing/ItemClasses.h"
#include "module/framework/code_requests.h"
#include "module/framework/packet_decoder.h"
#include "module/layouts/RRPASS01.h"

class CRRPASS01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RRPASS01_R";

    explicit CRRPASS01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    // A listed code with its class: spaces behind what the class does not count.
    struct ListedCode {
        char Class;
        char Code[11];
    };

    template <class Packet>
    int OnPacket(const Packet& packet);

    template <class Packet>
    bool Passes(const Packet& packet) const;
    bool Passes(const SpecialPacket& packet) const;
    bool Passes(const NewsPacket& news) const;
    bool Passes(const OrderPacket& notice) const;

    static ListedCode MakeCode(const ItemClass& itemClass, const char* code);
    void TakeItems(std::span<const SubscriptionItem> items);
    bool& Wanted(char type) { return m_Wanted[type - kFirstPacketType]; }

    CodeRequests m_Requests;
    KeyIndex<ListedCode> m_Codes;
    bool m_Wanted[kPacketTypes] = {};  // by type: some item has asked for it, and all get it
    char m_szUserId[19] = {};          // of the notices that pass
    PlainQueue<char> m_Pending;        // packets, each with its type byte, close behind one another
};

#endif
