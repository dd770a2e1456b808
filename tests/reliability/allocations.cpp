#include "tests/reliability/allocations.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <utility>

namespace heap {

namespace {

std::atomic<int64_t> g_nBlocks = 0;
std::atomic<int64_t> g_nBytes = 0;

struct State {
    bool Armed = false;
    int64_t Asked = 0;
    int64_t FailAt = 0;
    Failure Mode = Failure::Once;
};
thread_local State t_State;

bool Fails() {
    if (!t_State.Armed) {
        return false;
    }
    const int64_t number = ++t_State.Asked;
    return t_State.FailAt != 0 &&
           (number == t_State.FailAt || (number > t_State.FailAt && t_State.Mode == Failure::FromThenOn));
}

constexpr std::align_val_t kUsual{alignof(std::max_align_t)};

void* Take(std::size_t bytes, std::align_val_t alignment = kUsual) {
    void* const block =
        Fails() ? nullptr : memalign(static_cast<std::size_t>(alignment), bytes == 0 ? 1 : bytes);
    if (block != nullptr) {
        g_nBlocks.fetch_add(1, std::memory_order_relaxed);
        g_nBytes.fetch_add(static_cast<int64_t>(malloc_usable_size(block)), std::memory_order_relaxed);
    }
    return block;
}

void* TakeOrThrow(std::size_t bytes, std::align_val_t alignment = kUsual) {
    void* const block = Take(bytes, alignment);
    return block != nullptr ? block : throw std::bad_alloc();
}

void Give(void* block) {
    if (block != nullptr) {
        g_nBlocks.fetch_sub(1, std::memory_order_relaxed);
        g_nBytes.fetch_sub(static_cast<int64_t>(malloc_usable_size(block)), std::memory_order_relaxed);
        std::free(block);
    }
}

}  // namespace

Use InUse() {
    return {g_nBlocks, g_nBytes};
}

Failing::Failing(int64_t n, Failure failure) {
    t_State = {true, 0, n, failure};
}

Failing::~Failing() {
    t_State.Armed = false;
}

bool Failing::Hit() {
    return t_State.FailAt != 0 && t_State.Asked >= t_State.FailAt;
}

int64_t Failing::Asked() {
    return t_State.Asked;
}

Spared::Spared() : m_bArmed(std::exchange(t_State.Armed, false)) {}

Spared::~Spared() {
    t_State.Armed = m_bArmed;
}

}  // namespace heap

void* operator new(std::size_t bytes) {
    return heap::TakeOrThrow(bytes);
}
void* operator new[](std::size_t bytes) {
    return heap::TakeOrThrow(bytes);
}
void* operator new(std::size_t bytes, std::align_val_t alignment) {
    return heap::TakeOrThrow(bytes, alignment);
}
void* operator new(std::size_t bytes, const std::nothrow_t& /*tag*/) noexcept {
    return heap::Take(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t& /*tag*/) noexcept {
    return heap::Take(bytes);
}
void* operator new(std::size_t bytes, std::align_val_t alignment, const std::nothrow_t& /*tag*/) noexcept {
    return heap::Take(bytes, alignment);
}
void operator delete(void* block) noexcept {
    heap::Give(block);
}
void operator delete[](void* block) noexcept {
    heap::Give(block);
}
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
    heap::Give(block);
}
void operator delete(void* block, std::size_t /*bytes*/) noexcept {
    heap::Give(block);
}
void operator delete[](void* block, std::size_t /*bytes*/) noexcept {
    heap::Give(block);
}
void operator delete(void* block, std::size_t /*bytes*/, std::align_val_t /*alignment*/) noexcept {
    heap::Give(block);
}
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    heap::Give(block);
}
void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
    heap::Give(block);
}
