#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <memory>
#include <optional>
#include <thread>

#include "host/services/services.h"
#include "host/tickhost.h"

namespace {

ViewItem* ItemOf(int number) {
    return new ViewItem{{}, new char[sizeof number + 2]{}, number, {}};
}

// The number of the item that was taken; -1: none.
int Take(void* queue) {
    char* data = nullptr;
    int length = 0;
    if (tickhost_take_view_item(queue, &data, &length) == 0) {
        return -1;
    }
    std::memset(data, ' ', sizeof length + 2);  // the buffer is the taker's
    tickhost_free_view_data(data);
    return length;
}

}  // namespace

TEST(ViewQueue, HandsOverEachItemOnceAndInOrder) {
    constexpr int kItems = 100000;
    CRtmPtrList queue;
    std::atomic<bool> wrong = false;
    std::thread taker([&] {
        for (int next = 0; next < kItems;) {
            const int number = Take(&queue);
            if (number < 0) {
                std::this_thread::yield();
            } else if (number != next++) {
                wrong = true;
            }
        }
    });
    for (int number = 0; number < kItems; ++number) {
        queue.AddTail(ItemOf(number));
        if (number % 1000 == 0) {  // a walk that the taker overtakes ends, and gives no item that is gone
            POSITION position = queue.GetHeadPosition();
            while (position != nullptr) {
                queue.GetNext(position);
            }
        }
    }
    taker.join();
    EXPECT_FALSE(wrong);
    EXPECT_EQ(Take(&queue), -1);
}

// By a call of this platform's and by those that every queue has.
TEST(ViewQueue, GivesAllItemsAtOnce) {
    static int s_nSum = 0;
    const auto add = [](void* item) {
        const std::unique_ptr<ViewItem> owned(static_cast<ViewItem*>(item));
        delete[] owned->pData;
        s_nSum = 10 * s_nSum + owned->nLen;
    };
    for (const auto& takeAll : {&TakeAllItems, &TakeAllByPosition<CRtmPtrList>}) {
        CRtmPtrList queue;
        queue.AddTail(ItemOf(1));
        queue.AddTail(ItemOf(2));
        takeAll(queue, add);
        takeAll(queue, add);
    }
    EXPECT_EQ(s_nSum, 1212);
}

// A message of a former queue that still waits does not reach the next one at its place.
TEST(ViewQueue, IsEmptyOnceItIsGone) {
    int told = 0;
    HWND window = tickhost_create_window([](void* context, HWND, uint32_t, uintptr_t,
                                            intptr_t) -> intptr_t { return ++*static_cast<int*>(context); },
                                         &told);
    std::optional<CRtmPtrList> queue;
    void* const stale = &queue.emplace();
    const auto tell = [&](uintptr_t place) { PostMessageA(window, 2244, place, 0); };
    queue->AddTail(ItemOf(7));
    EXPECT_EQ(tickhost_take_view_item(stale, nullptr, nullptr), 0);
    EXPECT_EQ(Take(stale), 7);
    tell(reinterpret_cast<uintptr_t>(stale));
    tell(1);
    queue.reset();
    EXPECT_EQ(Take(stale), -1);
    EXPECT_EQ(Take(nullptr), -1);
    queue.emplace();
    tell(reinterpret_cast<uintptr_t>(stale));
    EXPECT_EQ(tickhost_pump_messages(), 2);
    EXPECT_EQ(told, 2);
    tickhost_destroy_window(window);
}

// At one place, while another thread goes on taking.
TEST(ViewQueue, MayGoWhileItIsTakenFrom) {
    std::atomic<void*> latest = nullptr;
    std::atomic<bool> stop = false;
    std::atomic<int> taken = 0;
    std::thread taker([&] {
        while (!stop) {
            taken += Take(latest) >= 0 ? 1 : 0;
        }
    });
    for (int round = 0; round < 5000; ++round) {
        CRtmPtrList shortLived;
        latest = &shortLived;
        shortLived.AddTail(ItemOf(round));
        taken += Take(&shortLived) >= 0 ? 1 : 0;
        shortLived.AddTail(ItemOf(round));
        taken += Take(&shortLived) >= 0 ? 1 : 0;
    }
    stop = true;
    taker.join();
    EXPECT_EQ(taken, 10000);
}
