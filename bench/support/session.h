// A session that all forms play: screens with their windows, packets, and batch ends.
#ifndef TICKMUX_BENCH_SUPPORT_SESSION_H
#define TICKMUX_BENCH_SUPPORT_SESSION_H

#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "bench/support/question.h"
#include "bench/support/written_form.h"
#include "host/platform/platform.h"
#include "host/services/services.h"
#include "tests/support/host_parts.h"

namespace bench {

using Buffers = std::vector<std::string>;

struct Script {
    std::vector<ScreenToOpen> Screens;
    Buffers Before;               // packets, once, with a batch end behind them
    Buffers Feed;                 // packets in each pass
    std::size_t nBatch = 1;       // packets in a batch; 0: no batch ends
    std::shared_ptr<void> World;  // what the screens read when they open
};

// Windows fetch each item within its message and free it; what they got can be kept. The module is loaded
// once: a second session that is open beside the first has all its packets decoded twice, and is refused.
template <class Form>
class Session {
public:
    explicit Session(const Script& script) : m_Script(script) {
        if (std::exchange(s_bOpen, true) && std::is_same_v<Form, ModuleForm>) {
            Differ("two sessions of the one module would get each other's packets");
        }
        for (const ScreenToOpen& screen : script.Screens) {
            m_Scattered.push_back(std::make_unique<char[]>(64 + m_Scattered.size() * 40 % 4000));
            m_Views.push_back(std::make_unique<View>(*this, screen.Map));
            View& view = *m_Views.back();
            view.Map = m_Form.Regist(view.Window, screen.Map.c_str());
            if (view.Map == 0 || m_Form.Init(view.Map, screen.Init) == 0) {
                Differ(screen.Map + " refuses its Init text");
            }
        }
        for (const std::string& packet : m_Script.Before) {
            m_Form.Put(packet);
        }
        m_Form.EndBatch();
    }
    ~Session() {
        s_bOpen = false;
        for (const auto& view : m_Views) {
            m_Form.Unregist(view->Map);
            tickhost_destroy_window(view->Window);
        }
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    int64_t Packets() const { return static_cast<int64_t>(m_Script.Feed.size()); }

    void Pass() {
        std::size_t left = m_Script.nBatch;
        for (const std::string& packet : m_Script.Feed) {
            m_Form.Put(packet);
            if (left > 0 && --left == 0) {
                m_Form.EndBatch();
                left = m_Script.nBatch;
            }
        }
        tickhost_pump_messages();  // what was posted, as a terminal's own loop does
    }

    // What the windows get in one pass and a batch end, all in order.
    Buffers Sent() {
        m_bKeeping = true;
        Pass();
        m_Form.EndBatch();
        m_bKeeping = false;
        return std::exchange(m_Sent, {});
    }

private:
    struct View {
        View(Session& owner, const std::string& map) : Owner(owner), nTagBytes(TagBytesOf(map)) {}

        void OnMessage(uint32_t message, uintptr_t wParam, intptr_t /*lParam*/) const {
            if (message == WM_TICKMUX_VIEW) {
                Fetch(wParam, nTagBytes, [this](std::string_view buffer) {
                    if (Owner.m_bKeeping) {
                        Owner.m_Sent.emplace_back(buffer);
                    }
                });
            }
        }

        Session& Owner;
        std::size_t nTagBytes;
        HWND Window = WindowOf(*this);
        uintptr_t Map = 0;
    };

    inline static bool s_bOpen = false;

    Script m_Script;
    Form m_Form;
    std::vector<std::unique_ptr<View>> m_Views;
    std::vector<std::unique_ptr<char[]>> m_Scattered;  // lies between the decoders
    bool m_bKeeping = false;
    Buffers m_Sent;
};

// Sends the same buffers without deciding or printing anything: allocates and copies each, queues it, tells a
// window, which fetches and frees it.
class Sending {
public:
    explicit Sending(Buffers buffers) : m_Buffers(std::move(buffers)), m_Window(WindowOf(*this)) {}
    ~Sending() { tickhost_destroy_window(m_Window); }
    Sending(const Sending&) = delete;
    Sending& operator=(const Sending&) = delete;

    void Pass() {
        for (const std::string& buffer : m_Buffers) {
            if (IsWindow(m_Window) != FALSE) {
                auto* item = new ViewItem;
                item->pData = new char[buffer.size()];
                item->nLen = static_cast<int32_t>(buffer.size());
                std::memcpy(item->pData, buffer.data(), buffer.size());
                m_Queue.AddTail(item);
                SendNotifyMessageA(m_Window, WM_TICKMUX_VIEW, reinterpret_cast<WPARAM>(&m_Queue), 0);
            }
        }
    }

    void OnMessage(uint32_t /*message*/, uintptr_t wParam, intptr_t /*lParam*/) const {
        Fetch(wParam, 0, [](std::string_view) {});
    }

private:
    Buffers m_Buffers;
    HWND m_Window;
    CRtmPtrList m_Queue;
};

// The script as a question of the module alone. The floor is the sending alone.
inline Question Alone(const std::string& what, const Script& script) {
    auto module = std::make_shared<Session<ModuleForm>>(script);
    Question question{what, {}, static_cast<int64_t>(script.Feed.size()), [module] { module->Pass(); }};
    if (const Buffers sent = module->Sent(); !sent.empty()) {
        question.Floor = [sending = std::make_shared<Sending>(sent)] { sending->Pass(); };
    }
    return question;
}

// The same beside the other forms; nothing is asked before all have sent the same, byte for byte.
inline Question Compare(const std::string& what, const Aims& aims, const Script& script) {
    auto plainForm = std::make_shared<Session<PlainForm>>(script);
    auto competentForm = std::make_shared<Session<CompetentForm>>(script);
    const Buffers sent = Session<ModuleForm>(script).Sent();
    if (plainForm->Sent() != sent || competentForm->Sent() != sent) {
        Differ(what);
    }
    Question question = Alone(what, script);
    question.Aim = aims;
    question.Plain = [plainForm] { plainForm->Pass(); };
    question.Competent = [competentForm] { competentForm->Pass(); };
    return question;
}

}  // namespace bench

#endif
