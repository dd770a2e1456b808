// Single objects out of blocks, at addresses that stay. A failed allocation gives null instead of throwing.
#ifndef TICKMUX_MODULE_CONTAINERS_NODE_POOL_H
#define TICKMUX_MODULE_CONTAINERS_NODE_POOL_H

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

template <class T>
class NodePool {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

public:
    NodePool() = default;
    ~NodePool() { Clear(); }
    NodePool(const NodePool&) = delete;
    NodePool& operator=(const NodePool&) = delete;

    // Its value is not set. Null: memory failed.
    T* Take() {
        if (m_pFree == nullptr && !Grow()) {
            return nullptr;
        }
        Slot* slot = m_pFree;
        m_pFree = slot->NextFree;
        return new (&slot->Object) T;
    }

    void Give(T* object) {
        auto* slot = reinterpret_cast<Slot*>(object);
        slot->NextFree = m_pFree;
        m_pFree = slot;
    }

    // All objects at once, and the memory with them.
    void Clear() {
        m_pFree = nullptr;
        while (m_pBlocks != nullptr) {
            const std::unique_ptr<Block> block(std::exchange(m_pBlocks, m_pBlocks->Next));
        }
    }

private:
    static constexpr std::size_t kBlockSize = 64;

    union Slot {
        Slot* NextFree;
        T Object;
    };
    struct Block {
        Block* Next;
        Slot Slots[kBlockSize];
    };

    bool Grow() {
        auto* block = new (std::nothrow) Block;
        if (block == nullptr) {
            return false;
        }
        block->Next = m_pBlocks;
        m_pBlocks = block;
        for (Slot& slot : block->Slots) {
            slot.NextFree = m_pFree;
            m_pFree = &slot;
        }
        return true;
    }

    Slot* m_pFree = nullptr;
    Block* m_pBlocks = nullptr;
};

#endif
