#include "module/framework/followers.h"

#include <algorithm>
#include <bit>
#include <utility>

void Followers::Enter(Follower& follower, uint64_t head) {
    ++m_nChanges;
    follower.m_nHead = head;
    Place& place = PlaceOf(head);
    // Mostly behind the last; who changes its key may belong before others.
    Follower* before = place.pLast;
    while (before != nullptr && before->m_nSerial > follower.m_nSerial) {
        before = before->m_pPrevious;
    }
    follower.m_pPrevious = before;
    follower.m_pNext = before == nullptr ? place.pFirst : before->m_pNext;
    (follower.m_pNext == nullptr ? place.pLast : follower.m_pNext->m_pPrevious) = &follower;
    (before == nullptr ? place.pFirst : before->m_pNext) = &follower;
}

void Followers::Leave(Follower& follower) {
    ++m_nChanges;
    Place& place = PlaceOf(follower.m_nHead);
    (follower.m_pPrevious == nullptr ? place.pFirst : follower.m_pPrevious->m_pNext) = follower.m_pNext;
    (follower.m_pNext == nullptr ? place.pLast : follower.m_pNext->m_pPrevious) = follower.m_pPrevious;
}

void Followers::MakeRoom(std::size_t decoders) {
    constexpr std::size_t kWithoutTable = 8;  // so few are asked one by one
    PlainArray<Place> table;
    if (decoders <= std::max(kWithoutTable, m_Table.Size()) || !table.Reserve(std::bit_ceil(decoders))) {
        return;
    }
    table.Resize(std::bit_ceil(decoders));
    std::fill_n(table.Data(), table.Size(), Place());
    std::swap(m_Table, table);
    const auto enterAll = [this](const Place& former) {
        for (Follower* follower = former.pFirst; follower != nullptr;) {
            Follower* const next = follower->m_pNext;
            Enter(*follower, follower->m_nHead);
            follower = next;
        }
    };
    // What shares a place now has shared one before, so that each goes behind the last.
    enterAll(std::exchange(m_OnePlace, {}));
    std::for_each_n(table.Data(), table.Size(), enterAll);
}
