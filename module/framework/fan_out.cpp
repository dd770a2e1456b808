// The packet path of the manager: who gets a packet, and who is visited at the batch end.
#include <algorithm>
#include <atomic>
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
    Follower* const first = m_Lists.Following.FirstOf(KeyHeadOf(packet));
    return m_TypeList[TypeIndex(*packet)].Empty() ? PutToFollowers(first, packet, length)
                                                  : PutInOrder({first, 0}, packet, length);
}

// Who is in a chain is active. A window that is told of a row may open, close or turn screens: who comes next
// is then looked for anew.
int CRTMMapManager::PutToFollowers(Follower* follower, const char* packet, int length) {
    const uint64_t changes = m_Lists.nChanges;
    while (follower != nullptr) {
        auto& decoder = static_cast<CRTMPacketDecoder&>(*follower);
        follower = Followers::NextOf(*follower);
        decoder.TakePacket(TypeIndex(*packet), packet, length);
        if (m_Lists.nChanges.load(std::memory_order_relaxed) != changes) {
            return PutInOrder(NextBehind(decoder.Serial(), packet, changes), packet, length);
        }
    }
    return 1;
}

// Followers of the key and others of the type, in order of registration.
int CRTMMapManager::PutInOrder(Walk next, const char* packet, int length) {
    constexpr uint64_t kBehindAll = UINT64_MAX;
    const TypeList& others = m_TypeList[TypeIndex(*packet)];
    uint64_t changes = m_Lists.nChanges;
    const auto put = [&](CRTMPacketDecoder& decoder) {
        if (decoder.IsActive() != 0) {
            decoder.TakePacket(TypeIndex(*packet), packet, length);
        }
        const bool turned = m_Lists.nChanges.load(std::memory_order_relaxed) != changes;
        if (turned) {
            next = NextBehind(decoder.Serial(), packet, changes);
            changes = m_Lists.nChanges;
        }
        return turned;
    };
    while (true) {
        const uint64_t follower = next.pFollower == nullptr ? kBehindAll : next.pFollower->Serial();
        bool turned = false;
        while (!turned && next.nOther < others.Size() && others[next.nOther]->Serial() < follower) {
            turned = put(*others[next.nOther++]);
        }
        if (turned) {
            continue;
        }
        if (next.pFollower == nullptr) {
            return 1;
        }
        auto& decoder = static_cast<CRTMPacketDecoder&>(*next.pFollower);
        next.pFollower = Followers::NextOf(decoder);
        put(decoder);
    }
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
        m_MapList[place]->pDecoder->EndBatch();
        // A window may have closed the map from within its message, or another may stand there now.
        if (place < m_MapList.Size() && m_MapList[place] != nullptr &&
            !m_MapList[place]->pDecoder->AwaitsBatchEnd()) {
            m_Lists.Changed.Unmark(place);
        }
    }
    m_pBatchEnd = end.pOuter;
}
