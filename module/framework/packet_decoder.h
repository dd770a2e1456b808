// CRTMPacketDecoder, the base of all decoders: target window, state flags, the table of packet types that a
// class takes, the output image, and the queue of finished buffers.
//
// A decoder owns its state. A buffer given to PostToView belongs to the view queue, and from there to the
// host. Packets and Init texts are the host's and live for the call. There is no lock here: the manager's map
// guard and the host keep the calls apart; only the queue is shared with the window's thread.
//
// A class tells its handlers and, in OnInit, OnEndUnpack, OnRelease and OnStop, what it does within the calls
// of the same names. What every class must do there stands here once.
#ifndef TICKMUX_MODULE_FRAMEWORK_PACKET_DECODER_H
#define TICKMUX_MODULE_FRAMEWORK_PACKET_DECODER_H

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

#include "host/platform/platform.h"
#include "host/services/services.h"
#include "module/framework/changed_places.h"
#include "module/framework/followers.h"
#include "module/framework/init_reader.h"
#include "module/framework/view_buffer.h"
#include "module/wire/packets.h"

class CRTMPacketDecoder;

// What a decoder class does with one packet type: the length that the payload must have, which of its first
// eight bytes are a key's, and the handler. No handler: the type is not taken.
struct PacketSlot {
    int32_t Length;
    uint64_t KeyMask;
    int (*Handler)(CRTMPacketDecoder& decoder, const char* payload);
};

// The slots of one decoder class, by type char, and the chars that have one, rising and zero-ended.
struct PacketSlots {
    PacketSlot Slots[kPacketTypes];
    char Types[kPacketTypes + 1];
};

// By which the manager finds decoders again. Chains and places change under the map guard, the count of
// changes under the type guard as well.
struct ManagerLists {
    std::atomic<uint64_t> nChanges = 0;  // of what a packet's walk goes by
    Followers Following{nChanges};
    ChangedPlaces Changed;
};

class CRTMPacketDecoder : public Follower {
public:
    CRTMPacketDecoder(const CRTMPacketDecoder&) = delete;
    CRTMPacketDecoder& operator=(const CRTMPacketDecoder&) = delete;
    // A host that holds a decoder calls these by their places in the object's table: their order stays, and
    // no class replaces them but the last.
    virtual ~CRTMPacketDecoder();
    // The answer of an inquiry. 0: the text is no good, and the decoder gets no packets.
    virtual int Init(const char* buffer);
    virtual void Stop();
    // Gives up what is asked for; the manager calls it for a map that goes, too.
    virtual void Release();
    // 1 if the packet fits a slot, whether or not the decoder runs; else 0.
    virtual int PutPacket(const char* packet, int length);
    // The batch is over: what has changed goes out, unless the decoder is stopped.
    virtual void EndUnpack();
    virtual const char* GetMapName() const = 0;

    // The same as PutPacket, of a type whose place in the tables is known.
    int TakePacket(std::size_t type, const char* packet, int length);

    // What the payload of a type must have; 0 for a type that is not taken.
    std::size_t PayloadLength(char type) const {
        return static_cast<std::size_t>(m_Slots.Slots[type - kFirstPacketType].Length);
    }
    uint64_t KeyMask(char type) const { return m_Slots.Slots[type - kFirstPacketType].KeyMask; }
    const char* GetPacketTypes() const { return m_Slots.Types; }

    // True: the batch end has something to send or to tell.
    bool AwaitsBatchEnd() const { return (m_bChanged | m_nUntold) != 0; }
    // What the manager closes a batch with: items that no window has heard of are told, changes go out.
    void EndBatch() {
        if (m_nUntold > 0) {
            TellWindow();
        }
        CRTMPacketDecoder::EndUnpack();
    }
    // The result of the last Init; the manager passes packets while it is not 0.
    int IsActive() const { return m_bActive; }
    void SetActive(int active);

    // True: it follows one key, by which the fan-out finds it.
    bool HasKey() const { return m_bHasKey; }
    // The key that it follows from now on.
    template <class Key>
    void Follow(const Key& key) {
        m_bHasKey = true;
        FollowHead(HeadOf(key));
    }

    // Where it stands in the manager's lists; the place may change. Null: nowhere any more.
    void Sit(ManagerLists* lists, std::size_t place) {
        m_pLists = lists;
        m_nPlace = place;
    }
    std::size_t Place() const { return m_nPlace; }

    // Frees the buffers that no window has fetched.
    void ClearViewQueue();

protected:
    CRTMPacketDecoder(HWND hWnd, const PacketSlots& slots) : m_Slots(slots), m_hWnd(hWnd) {}

    // Takes the answer of an inquiry; gives what Init gives.
    virtual int OnInit(InitReader& in) = 0;
    // Sends what has changed; without more said, a copy of the output image. The change is marked as sent
    // before, so that one which the window causes from within its message is sent too.
    virtual void OnEndUnpack() { PostOutput(); }
    // Gives up subscriptions, and what Release frees.
    virtual void OnRelease() {}
    // Frees what Stop frees.
    virtual void OnStop() {}

    // From within OnEndUnpack: not all could be sent, the next batch end tries again.
    void KeepChange() { NoteChange(1); }
    // What has changed meanwhile is not to be sent.
    void DropChange() { m_bChanged = 0; }
    bool IsStopped() const { return m_bStopped != 0; }

    // A new output image of spaces, of the layout's size; false if memory fails, and the former one stays.
    template <class Layout>
    bool AllocOutput() {
        ViewBuffer output = ViewBuffer::Blank(sizeof(Layout));
        if (!output) {
            return false;
        }
        m_Output = std::move(output);
        return true;
    }
    template <class Layout>
    Layout& Output() {
        return m_Output.As<Layout>();
    }

    // Puts a buffer into the view queue and tells the window; without a window it is freed. A message that
    // cannot be sent follows with the next one or at the next batch end: as many messages as items.
    void PostToView(ViewBuffer buffer);
    // Posts a copy of the output image as it is now.
    void PostOutput();

    bool HasWindow() const { return IsWindow(m_hWnd) != FALSE; }
    // Tell the window that the list has changed: now, or when it next looks at its messages.
    void NotifyListChanged();
    void PostListChanged();

    // For OnEndUnpack of a row list or a board: the rows that wait leave behind `front`. `rows` are
    // WaitingRows or a RowBoard.
    template <class Front, class Rows>
    void SendRows(const Front& front, Rows& rows) {
        if (rows.Empty()) {
            return;
        }
        ViewBuffer buffer = rows.Pack(front);
        if (!buffer) {
            KeepChange();  // with all rows
            return;
        }
        rows.Clear();
        PostToView(std::move(buffer));
    }

private:
    // What the fan-out looks at comes first, behind what it knows of a follower.
    int m_bActive = 0;
    int m_bStopped = 1;  // from construction, and by Stop; no handler runs and nothing is sent
    int m_bChanged = 0;  // handlers' results since the last send

    void NoteChange(int changed) {
        if (m_bChanged == 0) {
            AwaitBatchEnd();
        }
        m_bChanged |= changed;
    }
    void AwaitBatchEnd() {
        if (m_pLists != nullptr) {
            m_pLists->Changed.Mark(m_nPlace);
        }
    }
    void FollowHead(uint64_t head);
    void EnterChain();
    void LeaveChain();
    void Enqueue(ViewBuffer buffer);
    void TellWindow();

    int m_nUntold = 0;  // items in the queue that the window has had no message of
    const PacketSlots& m_Slots;
    ManagerLists* m_pLists = nullptr;
    std::size_t m_nPlace = 0;
    uint64_t m_nKeyHead = 0;
    bool m_bHasKey = false;
    bool m_bInChain = false;
    HWND m_hWnd;
    ViewBuffer m_Output;
    CRtmPtrList m_ViewQueue;
};

inline int CRTMPacketDecoder::TakePacket(std::size_t type, const char* packet, int length) {
    const PacketSlot& slot = m_Slots.Slots[type];
    if (length != slot.Length + 1) {
        return 0;
    }
    if (slot.Handler != nullptr && m_bStopped == 0) {
        if (const int changed = slot.Handler(*this, packet + 1); changed != 0) {
            NoteChange(changed);
        }
    }
    return 1;
}

// ---- how a class names its handlers
//
// A handler is a member `int OnX(const XPacket&)`. It says all: type char and length come from the packet,
// and its result asks for a refresh at the batch end. A handler that sends its own buffer at once gives 0.

template <class Handler>
struct HandlerTraits;

template <class Decoder, class Packet>
struct HandlerTraits<int (Decoder::*)(const Packet&)> {
    using DecoderClass = Decoder;
    using PacketStruct = Packet;
};

// Of the payload's first eight bytes; 0 if no key stands there.
template <class Packet>
constexpr uint64_t KeyMaskOf() {
    constexpr std::size_t kByte = 8;
    if constexpr (requires(Packet packet) { packet.Key; }) {
        if (offsetof(Packet, Key) == 0) {
            constexpr std::size_t kBytes = std::min(sizeof(Packet::Key), sizeof(uint64_t));
            return ~uint64_t{0} >> (sizeof(uint64_t) - kBytes) * kByte;
        }
    }
    return 0;
}

template <auto Handler>
int CallHandler(CRTMPacketDecoder& decoder, const char* payload) {
    using Traits = HandlerTraits<decltype(Handler)>;
    return (static_cast<typename Traits::DecoderClass&>(decoder).*
            Handler)(*reinterpret_cast<const typename Traits::PacketStruct*>(payload));
}

template <auto... Handlers>
constexpr PacketSlots MakeSlots() {
    PacketSlots slots{};
    [[maybe_unused]] const auto take = [&slots](char type, PacketSlot slot) {
        slots.Slots[type - kFirstPacketType] = slot;
    };
    (take(HandlerTraits<decltype(Handlers)>::PacketStruct::kType,
          {sizeof(typename HandlerTraits<decltype(Handlers)>::PacketStruct),
           KeyMaskOf<typename HandlerTraits<decltype(Handlers)>::PacketStruct>(), &CallHandler<Handlers>}),
     ...);
    char* type = slots.Types;
    for (int index = 0; index < kPacketTypes; ++index) {
        if (slots.Slots[index].Length > 0) {
            *type++ = static_cast<char>(kFirstPacketType + index);
        }
    }
    return slots;
}

// For the constructor: CRTMPacketDecoder(hWnd, Takes<&CRSTICK11::OnTradePacket>).
template <auto... Handlers>
inline constexpr PacketSlots Takes = MakeSlots<Handlers...>();

// The factory of a decoder class; null if memory fails, also that of the services which it sets up.
template <class Decoder>
CRTMPacketDecoder* CreateDecoder(HWND hWnd) {
    try {
        return new (std::nothrow) Decoder(hWnd);
    } catch (...) {
        return nullptr;
    }
}

#endif
