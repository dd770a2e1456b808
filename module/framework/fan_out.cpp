// The packet path of the manager: who gets a packet, and who is visited at the batch end.
#include <algorithm>
#include <cstring>

#include "module/framework/map_manager.h"
#include "module/framework/packet_decoder.h"

std::size_t CRTMMapManager::FirstBehind(const TypeList& list, uint64_t serial) {
    const auto isBehind = [](uint64_t known, const CRTMPacketDecoder* each) {
        return known < each->Serial();
    };
    CRTMPacketDecoder* const* const first = list.Data();
    return static_cast<std::size_t>(std::upper_bound(first, first + list.Size(), serial, isBehind) - first);
}

// NOLINTNEXTLINE(readability-non-const-parameter): the exported name has it so
int CRTMMapManager::PutRTMPacket(char* packet, int length) {
    // The shortest payload is longer than a key's head: what is shorter fits no slot.
    constexpr auto kShortest = static_cast<int>(1 + sizeof(uint64_t));
    if (packet == nullptr || length < kShortest || !IsPacketType(*packet)) {
        return 1;
    }
    Walk next{m_Lists.Following.FirstOf(KeyHeadOf(packet)), 0};
    while (true) {
        const uint64_t changes = m_Lists.nChanges;
        const uint64_t turnedAt = PutFrom(next, packet, length);
        if (turnedAt == 0) {
            return 1;
        }
        next = NextBehind(turnedAt, packet, changes);
    }
}

// Followers and others, in order of registration. A window that is told of a row may open, close or turn
// screens: then the walk ends with the serial of the decoder that told it, else with 0.
uint64_t CRTMMapManager::PutFrom(Walk next, const char* packet, int length) {
    const TypeList& others = m_TypeList[TypeIndex(*packet)];
    const uint64_t changes = m_Lists.nChanges;
    const auto turns = [&](CRTMPacketDecoder& decoder) {
        if (decoder.IsActive() != 0) {
            decoder.CRTMPacketDecoder::PutPacket(packet, length);
        }
        return m_Lists.nChanges.load(std::memory_order_relaxed) != changes;
    };
    while (next.pFollower != nullptr) {
        while (next.nOther < others.Size() && others[next.nOther]->Serial() < next.pFollower->Serial()) {
            CRTMPacketDecoder& decoder = *others[next.nOther++];
            if (turns(decoder)) {
                return decoder.Serial();
            }
        }
        auto& decoder = static_cast<CRTMPacketDecoder&>(*next.pFollower);
        next.pFollower = Followers::NextOf(*next.pFollower);
        if (turns(decoder)) {
            return decoder.Serial();
        }
    }
    while (next.nOther < others.Size()) {
        CRTMPacketDecoder& decoder = *others[next.nOther++];
        if (turns(decoder)) {
            return decoder.Serial();
        }
    }
    return 0;
}

uint64_t CRTMMapManager::KeyHeadOf(const char* packet) const {
    uint64_t head = 0;
    std::memcpy(&head, packet + 1, sizeof(head));
    return head & m_KeyMask[TypeIndex(*packet)];
}

CRTMMapManager::Walk CRTMMapManager::NextBehind(uint64_t serial, const char* packet, uint64_t changes) const {
    const TypeList& others = m_TypeList[TypeIndex(*packet)];
    // Who was the last before it was called stays the last for this packet, whoever was registered meanwhile.
    const auto stoodBehind = [&](const tagMAPINFO* map) {
        return map != nullptr && map->posType[TypeIndex(*packet)] && map->pDecoder->Serial() > serial &&
               map->pDecoder->Serial() <= changes;
    };
    if (m_nLastSerial > changes &&
        std::none_of(m_MapList.Data(), m_MapList.Data() + m_MapList.Size(), stoodBehind)) {
        return {nullptr, others.Size()};
    }
    Follower* follower = m_Lists.Following.FirstOf(KeyHeadOf(packet));
    while (follower != nullptr && follower->Serial() <= serial) {
        follower = Followers::NextOf(*follower);
    }
    return {follower, FirstBehind(others, serial)};
}

void CRTMMapManager::EndRTMUnpack() {
    BatchEnd end{0, m_pBatchEnd};
    m_pBatchEnd = &end;
    for (std::size_t place = m_Lists.Changed.FirstFrom(0); place < m_MapList.Size();
         place = m_Lists.Changed.FirstFrom(end.nNext)) {
        end.nNext = place + 1;
        CRTMPacketDecoder* decoder = m_MapList[place]->pDecoder.get();
        if (decoder->AwaitsBatchEnd()) {
            decoder->EndBatch();
        } else {
            m_Lists.Changed.Unmark(place);
        }
    }
    m_pBatchEnd = end.pOuter;
}
