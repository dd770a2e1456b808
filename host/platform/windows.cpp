// Windows, their owner threads, and the messages between them.
//
// One lock guards all; it is never held while a procedure runs. What a thread sends to a window of its own
// takes no lock: records stay where they are, and a record belongs to one thread as long as that one lives,
// which alone counts the calls of the procedure. Who destroys a window takes its handle off first and looks
// at the calls then; a call is counted first, and looks at the handle then. The windows of a thread end with
// it, those of the main thread with the process.
#include <algorithm>
#include <array>
#include <atomic>
#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>

#include "host/platform/guarded.h"
#include "host/platform/per_thread.h"
#include "host/platform/platform.h"
#include "host/platform/windows.h"

namespace {

struct Thread;

// A record, in which one window after another lives.
struct Window {
    std::atomic<HWND> Handle = nullptr;    // null: no window, or one that is destroyed and has yet to go
    std::atomic<Thread*> Owner = nullptr;  // null: of a thread that ended
    std::atomic<int> Running = 0;          // calls of the procedure that have not ended; the owner counts

    // The owner's.
    WindowProcedure Procedure = nullptr;  // null: every message is answered with 0
    void* Context = nullptr;

    // Under the lock.
    bool Going = false;           // destroyed, but a procedure still runs
    Thread* Destroyer = nullptr;  // waits until it is gone
    uintptr_t LastHandle = 0;
    Window* NextOfOwner = nullptr;
    Window* NextFree = nullptr;
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

    Queue Waiting;                // for its windows, oldest first
    int Senders = 0;              // how many of them have a sender who waits
    Thread* Blocker = nullptr;    // owner of the window that it waits to be rid of
    Window* Records = nullptr;    // all that are its own
    Window* Free = nullptr;       // of these, those without a window
    Thread* NextOwner = nullptr;  // in the list of the threads that have records
    std::condition_variable Wake;
};
using CurrentThread = PerThread<Thread, MainThread::EndsWithProcess>;

// A handle is a record's place, and above it how many windows have lived there: none is given twice.
constexpr std::size_t kMostRecords = 1 << 22;
constexpr std::size_t kChunk = 1024;

struct World {
    std::array<std::atomic<Window*>, kMostRecords / kChunk> Chunks{};
    std::mutex Lock;
    std::size_t Records = 0;  // in the chunks
    Window* Free = nullptr;   // of no thread
    Thread* Owners = nullptr;
    uint64_t LastNumber = 0;
    int64_t ViewMessages = 0;  // how many wait, of all threads
};
using Hold = std::unique_lock<std::mutex>;

World& TheWorld() {
    static auto* const world = new World;  // modules may still ask at the very end of the process
    return *world;
}

// The record of a window that is there; null: none. Without the lock it may be gone the next moment.
Window* Find(const World& world, HWND handle) {
    const std::size_t place = reinterpret_cast<uintptr_t>(handle) % kMostRecords;
    Window* const chunk = world.Chunks[place / kChunk].load(std::memory_order_acquire);
    if (handle == nullptr || chunk == nullptr) {
        return nullptr;
    }
    Window& window = chunk[place % kChunk];
    return window.Handle.load(std::memory_order_acquire) == handle ? &window : nullptr;
}

Window* FindOwn(HWND handle) {
    Window* const window = Find(TheWorld(), handle);
    return window != nullptr && window->Owner.load(std::memory_order_relaxed) == CurrentThread::Peek()
               ? window
               : nullptr;
}

Window* TakeFree(Window*& list) {
    Window* const window = list;
    if (window != nullptr) {
        list = window->NextFree;
    }
    return window;
}

// A record whose handles are used up is not used again.
void PutFree(Window*& list, Window& window) {
    if (window.LastHandle <= UINTPTR_MAX - kMostRecords) {
        window.NextFree = list;
        list = &window;
    }
}

// Null: there are as many windows as there may be.
Window* NewRecord(World& world) {
    if (world.Records == kMostRecords) {
        return nullptr;
    }
    std::atomic<Window*>& chunk = world.Chunks[world.Records / kChunk];
    if (chunk == nullptr) {
        chunk = new Window[kChunk];
    }
    Window& window = chunk[world.Records % kChunk];
    window.LastHandle = world.Records++;
    return &window;
}

// Null: the same.
Window* RecordFor(World& world, Thread& self) {
    if (Window* const own = TakeFree(self.Free)) {
        return own;
    }
    Window* window = TakeFree(world.Free);
    if (window == nullptr) {
        window = NewRecord(world);
    }
    if (window != nullptr) {
        if (self.Records == nullptr) {
            self.NextOwner = world.Owners;
            world.Owners = &self;
        }
        window->Owner = &self;
        window->NextOfOwner = self.Records;
        self.Records = window;
    }
    return window;
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

// Under the lock. No procedure of the window runs any more.
void EndRecord(Window& window) {
    window.Going = false;
    PutFree(window.Owner.load()->Free, window);
    if (window.Destroyer != nullptr) {
        window.Destroyer->Wake.notify_one();
        window.Destroyer = nullptr;
    }
}

// A call of the procedure, on the owner's thread. Counted under the lock it finds the window there.
class Call {
public:
    Call(Window& window, HWND handle) : m_Window(window), m_Handle(handle) {
        m_Window.Running = m_Window.Running.load(std::memory_order_relaxed) + 1;
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() {
        const int others = m_Window.Running.load(std::memory_order_relaxed) - 1;
        m_Window.Running = others;
        if (others == 0 && !IsThere()) {
            const Hold hold(TheWorld().Lock);
            if (m_Window.Going) {
                EndRecord(m_Window);
            }
        }
    }

    bool IsThere() const { return m_Window.Handle == m_Handle; }

    LRESULT Run(UINT id, WPARAM first, LPARAM second) const {
        return m_Window.Procedure == nullptr
                   ? 0
                   : m_Window.Procedure(m_Window.Context, m_Handle, id, first, second);
    }

private:
    Window& m_Window;
    HWND m_Handle;
};

// The lock is open while the procedure runs.
LRESULT RunTarget(Hold& hold, const Message& message) {
    LRESULT result = 0;
    {
        const Call call(*message.Target, message.Target->Handle);
        hold.unlock();
        result = call.Run(message.Id, message.First, message.Second);
    }
    hold.lock();
    return result;
}

void RunQueued(Hold& hold, Thread& self, Queue::iterator position) {
    const Message message = *position;
    self.Waiting.erase(position);
    TheWorld().ViewMessages -= ViewMessages(message);
    self.Senders -= message.Answer != nullptr ? 1 : 0;
    const LRESULT result = RunTarget(hold, message);
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
void Destroy(World& world, Hold& hold, Thread& self, Window& window) {
    window.Handle = nullptr;
    DropMessages(world, window);
    if (window.Running == 0) {
        EndRecord(window);
        return;
    }
    window.Going = true;
    Thread* const owner = window.Owner;
    if (WaitsFor(owner, &self)) {
        return;
    }
    const uintptr_t handle = window.LastHandle;
    Thread* const outer = self.Blocker;
    window.Destroyer = &self;
    self.Blocker = owner;
    WaitServing(hold, self, [&] { return !window.Going || window.LastHandle != handle; });
    self.Blocker = outer;
}

// No procedure runs here any more: the lock stays closed.
Thread::~Thread() {
    if (Records == nullptr) {
        return;
    }
    World& world = TheWorld();
    Hold hold(world.Lock);
    while (Records != nullptr) {
        Window& window = *Records;
        if (window.Handle != nullptr) {
            Destroy(world, hold, *this, window);
        }
        Records = window.NextOfOwner;
        window.Owner = nullptr;
        PutFree(world.Free, window);
    }
    Thread** place = &world.Owners;
    while (*place != this) {
        place = &(*place)->NextOwner;
    }
    *place = NextOwner;
}

}  // namespace

HWND MakeWindow(WindowProcedure procedure, void* context) {
    return OrRefuse(HWND{nullptr}, [&] {
        Thread& self = CurrentThread::Get();
        World& world = TheWorld();
        const Hold hold(world.Lock);
        Window* const window = RecordFor(world, self);
        if (window == nullptr) {
            return HWND{nullptr};
        }
        window->Procedure = procedure;
        window->Context = context;
        window->LastHandle += kMostRecords;
        window->Handle = reinterpret_cast<HWND>(window->LastHandle);
        return window->Handle.load();
    });
}

void EndWindow(HWND window) {
    OrRefuse(0, [&] {
        Thread& self = CurrentThread::Get();
        World& world = TheWorld();
        Hold hold(world.Lock);
        if (Window* const found = Find(world, window)) {
            Destroy(world, hold, self, *found);
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
    return Find(TheWorld(), window) != nullptr ? TRUE : FALSE;
}

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (Window* const own = FindOwn(window)) {
        const Call call(*own, window);
        return call.IsThere() ? call.Run(message, wParam, lParam) : 0;
    }
    World& world = TheWorld();
    Hold hold(world.Lock);
    Window* const found = Find(world, window);
    Reply reply{};
    if (found != nullptr && OrRefuse(false, [&] {
            reply.Sender = &CurrentThread::Get();
            return Enqueue(world, {0, found, message, wParam, lParam, &reply});
        })) {
        WaitServing(hold, *reply.Sender, [&] { return reply.Given; });
    }
    return reply.Result;
}

BOOL SendNotifyMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* const own = FindOwn(window);
    if (own == nullptr) {
        return PostMessageA(window, message, wParam, lParam);
    }
    const Call call(*own, window);
    if (!call.IsThere()) {
        return FALSE;
    }
    call.Run(message, wParam, lParam);
    return TRUE;
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
    for (Thread* owner = world.ViewMessages == 0 ? nullptr : world.Owners; owner != nullptr;
         owner = owner->NextOwner) {
        owner->Waiting.remove_if([&](const Message& message) {
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
        // A window that is waited for leaves time for another one to be made.
        for (bool found = true; found;) {
            found = false;
            for (std::size_t place = 0; place < world.Records; ++place) {
                Window& window = world.Chunks[place / kChunk][place % kChunk];
                if (window.Handle != nullptr) {
                    found = true;
                    Destroy(world, hold, self, window);
                }
            }
        }
        return 1;
    });
}
