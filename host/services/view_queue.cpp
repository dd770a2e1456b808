// The view queue: the module adds on its thread, the host takes on its own.
#include <array>
#include <memory>
#include <mutex>
#include <span>
#include <utility>

#include "host/platform/windows.h"
#include "host/services/exports.h"
#include "host/services/services.h"

namespace {

// Constant when it begins, so that none of many has to be made.
#ifdef _WIN32
class QueueLock {
public:
    void lock() { AcquireSRWLockExclusive(&m_Lock); }
    void unlock() { ReleaseSRWLockExclusive(&m_Lock); }

private:
    SRWLOCK m_Lock = SRWLOCK_INIT;
};
#else
using QueueLock = std::mutex;
#endif

}  // namespace

// A node off the list stays in its block, so that a position that was overtaken by a taker is told by its
// mark.
struct CRtmPtrList::Node {
    Node* Next;
    void* Item;
    bool Queued;
};

struct CRtmPtrList::Block {
    Block* Next;
    std::array<Node, 10> Nodes;
};

// The lists that exist, in buckets by address: a window may take from a queue whose address came by a message
// that was queued before the queue went away. A bucket's lock is that of its lists: it keeps a list alive
// while an item is taken off. Entering a list needs no memory.
struct CRtmPtrList::Bucket {
    QueueLock Lock;
    CRtmPtrList* First = nullptr;

    // Most are never touched, and then take no memory.
    static Bucket& Of(const void* list) {
        static constinit std::array<Bucket, 65536> buckets;
        constexpr uintptr_t kLineBits = 6;
        return buckets[(reinterpret_cast<uintptr_t>(list) >> kLineBits) % buckets.size()];
    }
    // The pointer that leads to the list, or the null pointer at the bucket's end.
    CRtmPtrList** Find(const void* list) {
        CRtmPtrList** place = &First;
        while (*place != nullptr && *place != list) {
            place = &(*place)->m_pNeighbour;
        }
        return place;
    }
};

CRtmPtrList::CRtmPtrList() {
    Bucket& bucket = Bucket::Of(this);
    const std::lock_guard hold(bucket.Lock);
    m_pNeighbour = std::exchange(bucket.First, this);
}

CRtmPtrList::~CRtmPtrList() {
    {
        Bucket& bucket = Bucket::Of(this);
        const std::lock_guard hold(bucket.Lock);
        *bucket.Find(this) = m_pNeighbour;
    }
    DropViewMessages(this);
    while (m_pBlocks != nullptr) {
        const std::unique_ptr<Block> block(m_pBlocks);
        m_pBlocks = block->Next;
    }
}

POSITION CRtmPtrList::AddTail(void* item) {
    const std::lock_guard hold(Bucket::Of(this).Lock);
    Node* node = m_pFree;
    if (node != nullptr) {
        m_pFree = node->Next;
    } else {
        m_pBlocks = new Block{m_pBlocks, {}};
        node = &m_pBlocks->Nodes.front();
        for (Node& other : std::span(m_pBlocks->Nodes).subspan(1)) {
            other.Next = m_pFree;
            m_pFree = &other;
        }
    }
    *node = {nullptr, item, true};
    (m_pTail == nullptr ? m_pHead : m_pTail->Next) = node;
    m_pTail = node;
    return reinterpret_cast<POSITION>(node);
}

POSITION CRtmPtrList::GetHeadPosition() const {
    const std::lock_guard hold(Bucket::Of(this).Lock);
    return reinterpret_cast<POSITION>(m_pHead);
}

void* CRtmPtrList::GetNext(POSITION& position) const {
    const std::lock_guard hold(Bucket::Of(this).Lock);
    const Node* const node = reinterpret_cast<const Node*>(position);
    if (node == nullptr || !node->Queued) {
        position = nullptr;
        return nullptr;
    }
    position = reinterpret_cast<POSITION>(node->Next);
    return node->Item;
}

// Under the lock.
void* CRtmPtrList::RemoveHead() {
    Node* const node = m_pHead;
    if (node == nullptr) {
        return nullptr;
    }
    m_pHead = node->Next;
    if (m_pHead == nullptr) {
        m_pTail = nullptr;
    }
    void* const item = node->Item;
    *node = {m_pFree, nullptr, false};
    m_pFree = node;
    return item;
}

void CRtmPtrList::RemoveAll() {
    const std::lock_guard hold(Bucket::Of(this).Lock);
    while (m_pHead != nullptr) {
        RemoveHead();
    }
}

void TakeAllItems(CRtmPtrList& queue, void (*take)(void* item)) {
    const std::lock_guard hold(CRtmPtrList::Bucket::Of(&queue).Lock);
    while (void* const item = queue.RemoveHead()) {
        take(item);
    }
}

void* CRtmPtrList::TakeFrom(const void* list) {
    Bucket& bucket = Bucket::Of(list);
    const std::lock_guard hold(bucket.Lock);
    CRtmPtrList* const found = *bucket.Find(list);
    return found == nullptr ? nullptr : found->RemoveHead();
}

int tickhost_take_view_item(void* queue, char** data, int* length) {
    if (data == nullptr || length == nullptr) {
        return 0;
    }
    const std::unique_ptr<ViewItem> item(static_cast<ViewItem*>(CRtmPtrList::TakeFrom(queue)));
    if (item == nullptr) {
        return 0;
    }
    *data = item->pData;
    *length = item->nLen;
    return 1;
}

// NOLINTNEXTLINE(readability-non-const-parameter): the buffer comes back to who made it
void tickhost_free_view_data(char* data) {
    delete[] data;
}
