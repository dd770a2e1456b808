// A session that both forms play: screens with their windows, packets, and batch ends.
#ifndef TICKMUX_BENCH_SUPPORT_SESSION_H
#define TICKMUX_BENCH_SUPPORT_SESSION_H

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/plain/framework.h"
#include "bench/support/question.h"
#include "framework/shapes.h"
#include "framework/tickmux.h"
#include "host/platform.h"
#include "host/services.h"
#include "host/tickhost.h"

namespace bench {

struct Packets : std::vector<std::string> {
    template <class Packet>
    void Add(const Packet& packet) {
        push_back(Packet::kType + std::string(reinterpret_cast<const char*>(&packet), sizeof(packet)));
    }
};

struct Script {
    struct Screen {
        std::string Map;
        std::string Init;
    };
    std::vector<Screen> Screens;
    Packets Before;               // once, with a batch end behind them
    Packets Feed;                 // in each pass
    std::size_t nBatch = 1;       // packets in a batch; 0: no batch ends
    std::shared_ptr<void> World;  // what the screens read when they open
};

using Buffers = std::vector<std::string>;

class ModuleForm {
public:
    void Open(HWND window, const std::string& map, std::string init) {
        const tickmux_handle handle = RegistMap(window, map.c_str());
        m_Handles.push_back(handle);
        if (handle == 0 || InitMap(handle, init.data()) == 0) {
            Differ(map + " refuses its Init text");
        }
    }
    void Close() {
        for (const tickmux_handle handle : m_Handles) {
            UnregistMap(handle);
        }
        m_Handles.clear();
    }
    void Put(std::string& packet) { PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size())); }
    void EndBatch() { EndRTMUnpackToDecoder(); }
    static bool Take(void* queue, char** data, int* length) {
        return tickhost_take_view_item(queue, data, length) != 0;
    }
    static void Free(char* data) { tickhost_free_view_data(data); }

private:
    std::vector<tickmux_handle> m_Handles;
};

class PlainForm {
public:
    void Open(HWND window, const std::string& map, const std::string& init) {
        const plain::Module::Handle handle = m_Module.RegistMap(window, map.c_str());
        m_Handles.push_back(handle);
        if (handle == 0 || m_Module.InitMap(handle, init.c_str()) == 0) {
            Differ(map + " refuses its Init text in the plain form");
        }
    }
    void Close() {
        for (const plain::Module::Handle handle : m_Handles) {
            m_Module.UnregistMap(handle);
        }
        m_Handles.clear();
    }
    void Put(std::string& packet) {
        m_Module.PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size()));
    }
    void EndBatch() { m_Module.EndRTMUnpackToDecoder(); }
    static bool Take(void* queue, char** data, int* length) {
        return plain::TakeViewItem(queue, data, length);
    }
    static void Free(const char* data) { delete[] data; }

private:
    plain::Module m_Module;
    std::vector<plain::Module::Handle> m_Handles;
};

// Windows fetch each item within its message and free it; what they got can be kept.
template <class Form>
class Session {
public:
    explicit Session(const Script& script) : m_Script(script) {
        for (const Script::Screen& screen : script.Screens) {
            m_Scattered.push_back(std::make_unique<char[]>(64 + m_Scattered.size() * 40 % 4000));
            m_Views.push_back(
                std::make_unique<View>(View{this, screen.Map == "RRPASS01_R" ? 0U : sizeof(RequestTag)}));
            m_Windows.push_back(tickhost_create_window(&Procedure, m_Views.back().get()));
            m_Form.Open(m_Windows.back(), screen.Map, screen.Init);
        }
        for (std::string& packet : m_Script.Before) {
            m_Form.Put(packet);
        }
        m_Form.EndBatch();
    }
    ~Session() {
        m_Form.Close();
        for (HWND window : m_Windows) {
            tickhost_destroy_window(window);
        }
    }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void Pass() {
        std::size_t left = m_Script.nBatch;
        for (std::string& packet : m_Script.Feed) {
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
        Session* Owner;
        std::size_t nTagBytes;  // none where packets pass through
    };

    static intptr_t Procedure(void* context, HWND /*window*/, uint32_t message, uintptr_t wParam,
                              intptr_t /*lParam*/) {
        const View& view = *static_cast<View*>(context);
        Session& session = *view.Owner;
        char* data = nullptr;
        int length = 0;
        if (message == WM_TICKMUX_VIEW && Form::Take(reinterpret_cast<void*>(wParam), &data, &length)) {
            if (session.m_bKeeping) {
                session.m_Sent.emplace_back(data, static_cast<std::size_t>(length) + view.nTagBytes);
            }
            Form::Free(data);
        }
        return 0;
    }

    Script m_Script;
    Form m_Form;
    std::vector<std::unique_ptr<View>> m_Views;
    std::vector<HWND> m_Windows;
    std::vector<std::unique_ptr<char[]>> m_Scattered;  // lies between the decoders
    bool m_bKeeping = false;
    Buffers m_Sent;
};

// Sends the same buffers without deciding or printing anything: allocates and copies each, queues it, tells a
// window, which fetches and frees it.
class Sending {
public:
    explicit Sending(Buffers buffers)
        : m_Buffers(std::move(buffers)), m_Window(tickhost_create_window(&Procedure, nullptr)) {}
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

private:
    static intptr_t Procedure(void* /*context*/, HWND /*window*/, uint32_t /*message*/, uintptr_t wParam,
                              intptr_t /*lParam*/) {
        char* data = nullptr;
        int length = 0;
        if (tickhost_take_view_item(reinterpret_cast<void*>(wParam), &data, &length) != 0) {
            tickhost_free_view_data(data);
        }
        return 0;
    }

    Buffers m_Buffers;
    HWND m_Window;
    CRtmPtrList m_Queue;
};

// The script as a question; nothing is asked before both forms have sent the same, byte for byte. The floor
// is the sending alone.
inline Question Compare(const std::string& what, double aim, const Script& script) {
    auto plainForm = std::make_shared<Session<PlainForm>>(script);
    auto module = std::make_shared<Session<ModuleForm>>(script);
    const Buffers sent = module->Sent();
    if (plainForm->Sent() != sent) {
        Differ(what);
    }
    Question question{what, aim, static_cast<int64_t>(script.Feed.size()), [plainForm] { plainForm->Pass(); },
                      [module] { module->Pass(); }};
    if (!sent.empty()) {
        question.Floor = [sending = std::make_shared<Sending>(sent)] { sending->Pass(); };
    }
    return question;
}

}  // namespace bench

#endif
