#include "tests/plain/both_forms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "bench/plain/framework.h"
#include "framework/tickmux.h"
#include "host/tickhost.h"
#include "tests/support/scratch_folder.h"

namespace {

// The exported functions of either form.
struct TheModule {
    static uintptr_t Regist(HWND window, const char* map) { return RegistMap(window, map); }
    static void Unregist(uintptr_t map) { UnregistMap(map); }
    static int Init(uintptr_t map, std::string text) { return InitMap(map, text.data()); }
    static void Stop(uintptr_t map) { StopMap(map); }
    static void Release(uintptr_t map) { ReleaseMap(map); }
    static void Put(std::string packet) {
        PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size()));
    }
    static void EndBatch() { EndRTMUnpackToDecoder(); }
    static bool Take(void* queue, char** data, int* length) {
        return tickhost_take_view_item(queue, data, length) != 0;
    }
    static void Free(char* data) { tickhost_free_view_data(data); }
};

struct ThePlainForm {
    uintptr_t Regist(HWND window, const char* map) { return Module.RegistMap(window, map); }
    void Unregist(uintptr_t map) { Module.UnregistMap(map); }
    int Init(uintptr_t map, const std::string& text) { return Module.InitMap(map, text.c_str()); }
    void Stop(uintptr_t map) { Module.StopMap(map); }
    void Release(uintptr_t map) { Module.ReleaseMap(map); }
    void Put(const std::string& packet) {
        Module.PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size()));
    }
    void EndBatch() { Module.EndRTMUnpackToDecoder(); }
    static bool Take(void* queue, char** data, int* length) {
        return plain::TakeViewItem(queue, data, length);
    }
    static void Free(const char* data) { delete[] data; }

    plain::Module Module;
};

// Runs steps in one form and writes down what happens.
template <class Form>
class World {
public:
    explicit World(const std::function<void()>& prepare) {
        const tickhost_time evening = {2026, 11, 20, 20, 15, 30, 7};
        tickhost_set_local_time(&evening);
        tickhost_set_system_time(&evening);
        tickhost_set_communication_manager(tickhost_create_window(&OnRequest, this));
        tickhost_set_function_sink(&OnFunction, this);
        tickhost_set_text("DriveC", m_DriveC.Path("").c_str());
        prepare();
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World() { tickhost_reset(); }

    std::vector<std::string> Run(const Steps& steps) {
        for (const Step& step : steps) {
            Do(step);
            tickhost_pump_messages();
            ++m_nStep;
        }
        for (const auto& screen : m_Screens) {
            m_Form.Unregist(screen->Handle);
        }
        Happened("log", m_DriveC.Read("logs/RSNOCH21.txt"));
        return std::move(m_Events);
    }

private:
    struct Screen {
        World* Of;
        std::string Name;
        std::size_t TagSize;
        HWND Window;
        uintptr_t Handle;
    };

    void Do(const Step& step) {
        const auto handle = [&] { return m_Screens.at(step.Screen)->Handle; };
        switch (step.Do) {
            case Step::Open:
                return OpenScreen(step.Text);
            case Step::Init:
                return Happened("init", std::to_string(m_Form.Init(handle(), step.Text)));
            case Step::Stop:
                return m_Form.Stop(handle());
            case Step::Release:
                return m_Form.Release(handle());
            case Step::Packet:
                return m_Form.Put(step.Text);
            case Step::EndBatch:
                return m_Form.EndBatch();
            case Step::Clock:
                return tickhost_set_tick_count(1, step.Milliseconds);
        }
    }

    void OpenScreen(const std::string& map) {
        const std::string name = map + " " + std::to_string(m_Screens.size());
        m_Screens.push_back(
            std::make_unique<Screen>(Screen{this, name, map == "RRPASS01_R" ? 0U : 2U, nullptr, 0}));
        Screen& screen = *m_Screens.back();
        screen.Window = tickhost_create_window(&OnMessage, &screen);
        screen.Handle = m_Form.Regist(screen.Window, map.c_str());
        EXPECT_NE(screen.Handle, 0U) << map;
    }

    void Happened(const std::string& what, const std::string& bytes) {
        m_Events.push_back("step " + std::to_string(m_nStep) + ", " + what + ": " + bytes);
    }

    static intptr_t OnMessage(void* context, HWND /*window*/, uint32_t message, uintptr_t wParam,
                              intptr_t /*lParam*/) {
        const Screen& screen = *static_cast<Screen*>(context);
        std::string buffer;
        if (message == WM_TICKMUX_VIEW) {
            char* data = nullptr;
            int length = 0;
            EXPECT_TRUE(Form::Take(reinterpret_cast<void*>(wParam), &data, &length));
            buffer.assign(data, static_cast<std::size_t>(length) + screen.TagSize);
            Form::Free(data);
        }
        screen.Of->Happened(screen.Name + ", message " + std::to_string(message), buffer);
        return 0;
    }

    static intptr_t OnRequest(void* context, HWND /*window*/, uint32_t /*message*/, uintptr_t /*wParam*/,
                              intptr_t lParam) {
        const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        static_cast<World*>(context)->Happened("request",
                                               {static_cast<const char*>(data.lpData), data.cbData});
        return 0;
    }

    static void OnFunction(void* context, HWND /*window*/, const char* loginText, char type, const char* name,
                           const char* text, int length) {
        static_cast<World*>(context)->Happened(std::string("function ") + type + name + loginText,
                                               {text, static_cast<std::size_t>(length)});
    }

    const ScratchFolder m_DriveC;
    Form m_Form;
    int m_nStep = 0;
    std::vector<std::unique_ptr<Screen>> m_Screens;
    std::vector<std::string> m_Events;
};

}  // namespace

std::size_t ExpectSame(const Steps& steps, const std::function<void()>& prepare) {
    const std::vector<std::string> module = World<TheModule>(prepare).Run(steps);
    const std::vector<std::string> plain = World<ThePlainForm>(prepare).Run(steps);
    const std::size_t shorter = std::min(module.size(), plain.size());
    for (std::size_t i = 0; i < shorter; ++i) {
        EXPECT_EQ(module[i], plain[i]) << "event " << i;
        if (module[i] != plain[i]) {
            return i;
        }
    }
    EXPECT_EQ(module.size(), plain.size())
        << "the longer goes on with " << (module.size() > plain.size() ? module : plain)[shorter];
    return module.size();
}
