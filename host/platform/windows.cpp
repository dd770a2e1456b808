// Windows, their owner threads, and the messages between them.
//
// One lock guards all; it is never held while a procedure runs. A window that is destroyed leaves the table
// at once, and its record goes when no procedure of it runs any more. The windows of a thread end with it,
// those of the main thread with the process.
#include <algorithm>
#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "host/platform/guarded.h"
#include "host/platform/per_thread.h"
#include "host/platform/platform.h"
#include "host/platform/windows.h"

namespace {

struct Thread;

struct Window {
    HWND Handle;
    WindowProcedure Procedure;  // null: every message is answered with 0
    void* Context;
    Thread* Owner;
    int Running = 0;              // calls of the procedure that have not ended
    bool Destroyed = false;       // off the table
    Thread* Destroyer = nullptr;  // waits until no call runs, then frees the record; null: the last call does
};

// The sender's end of SendMessageA to another thread; lies on the sender's stack.
struct Reply {
    Thread* Sender;
    LRESULT Result = 0;
    bool Given = false;
};

struct Message {
    uint64_t Number;
    Window* Target;
    UINT Id;
    WPARAM First;
    LPARAM Second;
    Reply* Answer;  // null: nobody waits
};
using Queue = std::list<Message>;

struct Thread {
    Thread() = default;
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;
    ~Thread();  // its windows end with it

    Queue Waiting;              // for its windows, oldest first
    int Senders = 0;            // how many of them have a sender who waits
    uint64_t Swept = 0;         // by which sweep its messages were looked through last
    Thread* Blocker = nullptr;  // owner of the window that it waits to be rid of
    std::condition_variable Wake;
};
using CurrentThread = PerThread<Thread, MainThread::EndsWithProcess>;

struct World {
    std::mutex Lock;
    std::unordered_map<HWND, Window*> Windows;
    uintptr_t LastHandle = 0;
    uint64_t LastNumber = 0;
    uint64_t LastSweep = 0;
    int64_t ViewMessages = 0;  // how many wait, of all threads
};
using Hold = std::unique_lock<std::mutex>;

World& TheWorld() {
    static auto* const world = new World;  // modules may still ask at the very end of the process
    return *world;
}

Window* Find(const World& world, HWND handle) {
    const auto found = world.Windows.find(handle);
    return found == world.Windows.end() ? nullptr : found->second;
}

// How many messages of a queue's items this one is.
int64_t ViewMessages(const Message& message) {
    return message.Id == kViewMessage ? 1 : 0;
}

void Give(Reply& reply, LRESULT result) {
    reply.Result = result;
    reply.Given = true;
    reply.Sender->Wake.notify_one();
}

// The lock is open while the procedure runs.
LRESULT Run(Hold& hold, Window& window, UINT id, WPARAM first, LPARAM second) {
    ++window.Running;
    hold.unlock();
    const LRESULT result =
        window.Procedure == nullptr ? 0 : window.Procedure(window.Context, window.Handle, id, first, second);
    hold.lock();
    if (--window.Running == 0 && window.Destroyed) {
        if (window.Destroyer != nullptr) {
            window.Destroyer->Wake.notify_one();
        } else {
            delete &window;
        }
    }
    return result;
}

void RunQueued(Hold& hold, Thread& self, Queue::iterator position) {
    const Message message = *position;
    self.Waiting.erase(position);
    TheWorld().ViewMessages -= ViewMessages(message);
    self.Senders -= message.Answer != nullptr ? 1 : 0;
    const LRESULT result = Run(hold, *message.Target, message.Id, message.First, message.Second);
    if (message.Answer != nullptr) {
        Give(*message.Answer, result);
    }
}

// Waits for something that another thread does, and meanwhile serves who waits for this thread: of two
// threads that wait for each other both go on.
template <class Condition>
void WaitServing(Hold& hold, Thread& self, Condition condition) {
    while (!condition()) {
        if (self.Senders == 0) {
            self.Wake.wait(hold);
            continue;
        }
        RunQueued(hold, self,
                  std::find_if(self.Waiting.begin(), self.Waiting.end(),
                               [](const Message& message) { return message.Answer != nullptr; }));
    }
}

bool Enqueue(World& world, Message message) {
    Thread& owner = *message.Target->Owner;
    message.Number = world.LastNumber + 1;
    owner.Waiting.push_back(message);
    ++world.LastNumber;
    world.ViewMessages += ViewMessages(message);
    if (message.Answer != nullptr) {
        ++owner.Senders;
        owner.Wake.notify_one();
    }
    return true;
}

void DropMessages(World& world, const Window& window) {
    Thread& owner = *window.Owner;
    owner.Waiting.remove_if([&](const Message& message) {
        if (message.Target != &window) {
            return false;
        }
        if (message.Answer != nullptr) {
            --owner.Senders;
            Give(*message.Answer, 0);
        }
        world.ViewMessages -= ViewMessages(message);
        return true;
    });
}

bool WaitsFor(const Thread* waiter, const Thread* other) {
    while (waiter != nullptr && waiter != other) {
        waiter = waiter->Blocker;
    }
    return waiter == other;
}

// Comes back when no call of the procedure runs, but for the calls that this thread itself is in, and for two
// procedures that destroy each other's windows: there one must go first.
void Destroy(World& world, Hold& hold, Thread& self, Window* window) {
    world.Windows.erase(window->Handle);
    window->Destroyed = true;
    DropMessages(world, *window);
    if (window->Running == 0) {
        delete window;
        return;
    }
    if (WaitsFor(window->Owner, &self)) {
        return;
    }
    Thread* const outer = self.Blocker;
    window->Destroyer = &self;
    self.Blocker = window->Owner;
    WaitServing(hold, self, [&] { return window->Running == 0; });
    self.Blocker = outer;
    delete window;
}

Thread::~Thread() {
    World& world = TheWorld();
    Hold hold(world.Lock);
    for (auto next = world.Windows.begin(); next != world.Windows.end();) {
        Window* const window = (next++)->second;
        if (window->Owner == this) {
            Destroy(world, hold, *this, window);  // no procedure runs here any more: the lock stays closed
        }
    }
}

}  // namespace

HWND MakeWindow(WindowProcedure procedure, void* context) {
    return OrRefuse(HWND{nullptr}, [&] {
        Thread& self = CurrentThread::Get();
        World& world = TheWorld();
        const Hold hold(world.Lock);
        auto* const handle = reinterpret_cast<HWND>(world.LastHandle + 1);
        auto window = std::make_unique<Window>(Window{handle, procedure, context, &self});
        world.Windows.emplace(handle, window.get());
        ++world.LastHandle;
        return window.release()->Handle;
    });
}

void EndWindow(HWND window) {
    OrRefuse(0, [&] {
        Thread& self = CurrentThread::Get();
        World& world = TheWorld();
        Hold hold(world.Lock);
        if (Window* const found = Find(world, window)) {
            Destroy(world, hold, self, found);
        }
        return 1;
    });
}

int PumpMessages() {
    Thread* const self = CurrentThread::Peek();
    if (self == nullptr) {
        return 0;
    }
    World& world = TheWorld();
    Hold hold(world.Lock);
    // Not what is queued from now on: a procedure that posts to itself would keep this from ever coming back.
    const uint64_t last = world.LastNumber;
    int count = 0;
    for (; !self->Waiting.empty() && self->Waiting.front().Number <= last; ++count) {
        RunQueued(hold, *self, self->Waiting.begin());
    }
    return count;
}

BOOL IsWindow(HWND window) {
    World& world = TheWorld();
    const Hold hold(world.Lock);
    return Find(world, window) != nullptr ? TRUE : FALSE;
}

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    World& world = TheWorld();
    Hold hold(world.Lock);
    Window* const found = Find(world, window);
    if (found == nullptr) {
        return 0;
    }
    if (found->Owner == CurrentThread::Peek()) {
        return Run(hold, *found, message, wParam, lParam);
    }
    Reply reply{};
    if (OrRefuse(false, [&] {
            reply.Sender = &CurrentThread::Get();
            return Enqueue(world, {0, found, message, wParam, lParam, &reply});
        })) {
        WaitServing(hold, *reply.Sender, [&] { return reply.Given; });
    }
    return reply.Result;
}

BOOL SendNotifyMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    World& world = TheWorld();
    Hold hold(world.Lock);
    Window* const found = Find(world, window);
    if (found == nullptr) {
        return FALSE;
    }
    if (found->Owner == CurrentThread::Peek()) {
        Run(hold, *found, message, wParam, lParam);
        return TRUE;
    }
    return OrRefuse(false, [&] { return Enqueue(world, {0, found, message, wParam, lParam, nullptr}); });
}

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    World& world = TheWorld();
    const Hold hold(world.Lock);
    Window* const found = Find(world, window);
    return found != nullptr && OrRefuse(false, [&] {
               return Enqueue(world, {0, found, message, wParam, lParam, nullptr});
           });
}

void DropViewMessages(const void* queue) {
    World& world = TheWorld();
    const Hold hold(world.Lock);
    if (world.ViewMessages == 0) {
        return;
    }
    ++world.LastSweep;
    for (const auto& [handle, window] : world.Windows) {
        Thread& owner = *window->Owner;
        if (std::exchange(owner.Swept, world.LastSweep) == world.LastSweep) {
            continue;
        }
        owner.Waiting.remove_if([&](const Message& message) {
            const bool stale = message.Id == kViewMessage && message.Answer == nullptr &&
                               message.First == reinterpret_cast<WPARAM>(queue);
            world.ViewMessages -= stale ? 1 : 0;
            return stale;
        });
    }
}

void EndAllWindows() {
    OrRefuse(0, [] {
        Thread& self = CurrentThread::Get();
        World& world = TheWorld();
        Hold hold(world.Lock);
        while (!world.Windows.empty()) {
            Destroy(world, hold, self, world.Windows.begin()->second);
        }
        return 1;
    });
}
