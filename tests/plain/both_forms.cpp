#include "tests/plain/both_forms.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "bench/support/plain_form.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/terminal.h"

namespace {

// Runs steps in one form and writes down what happens.
template <class Form>
class World : private Terminal {
public:
    explicit World(const std::function<void()>& prepare) {
        const tickhost_time evening = {2026, 11, 20, 20, 15, 30, 7};
        tickhost_set_local_time(&evening);
        tickhost_set_system_time(&evening);
        tickhost_set_text("DriveC", m_DriveC.Path("").c_str());
        prepare();
    }

    ::Events Run(const Steps& steps) {
        for (const Step& step : steps) {
            Do(step);
            tickhost_pump_messages();
            ++m_nStep;
        }
        for (const auto& view : m_Views) {
            m_Form.Unregist(view->Map);
        }
        Happened("log: " + m_DriveC.Read("logs/RSNOCH21.txt"));
        return Events();
    }

private:
    // Tells of itself in full, unlike a screen of the terminal.
    struct View {
        View(World& of, const std::string& map)
            : Of(of), Name(map + " " + std::to_string(of.m_Views.size())), TagBytes(TagBytesOf(map)) {}

        void OnMessage(uint32_t message, uintptr_t wParam, intptr_t /*lParam*/) const {
            std::string what = Name + ", message " + std::to_string(message) + ": ";
            if (message == WM_TICKMUX_VIEW) {
                EXPECT_TRUE(
                    Fetch<Form>(wParam, TagBytes, [&what](std::string_view buffer) { what += buffer; }));
            }
            Of.Happened(what);
        }

        World& Of;
        std::string Name;
        std::size_t TagBytes;
        HWND Window = WindowOf(*this);
        uintptr_t Map = 0;
    };

    void Do(const Step& step) {
        const auto map = [&] { return m_Views.at(step.Screen)->Map; };
        switch (step.Do) {
            case Step::Open: {
                m_Views.push_back(std::make_unique<View>(*this, step.Text));
                m_Views.back()->Map = m_Form.Regist(m_Views.back()->Window, step.Text.c_str());
                EXPECT_NE(map(), 0U) << step.Text;
                return;
            }
            case Step::Init:
                return Happened("init: " + std::to_string(m_Form.Init(map(), step.Text)));
            case Step::Stop:
                return m_Form.Stop(map());
            case Step::Release:
                return m_Form.Release(map());
            case Step::Packet:
                m_Form.Put(step.Text);
                return;
            case Step::EndBatch:
                return m_Form.EndBatch();
            case Step::Clock:
                return tickhost_set_tick_count(1, step.Milliseconds);
        }
    }

    void Happened(const std::string& event) override {
        Terminal::Happened("step " + std::to_string(m_nStep) + ", " + event);
    }

    const ScratchFolder m_DriveC;
    Form m_Form;
    int m_nStep = 0;
    std::vector<std::unique_ptr<View>> m_Views;
};

}  // namespace

std::size_t ExpectSame(const Steps& steps, const std::function<void()>& prepare) {
    const Events module = World<ModuleForm>(prepare).Run(steps);
    const Events plain = World<PlainForm>(prepare).Run(steps);
    const auto [one, other] = std::mismatch(module.begin(), module.end(), plain.begin(), plain.end());
    EXPECT_TRUE(one == module.end() && other == plain.end())
        << "event " << one - module.begin() << "\n  module: " << (one == module.end() ? "nothing" : *one)
        << "\n  plain form: " << (other == plain.end() ? "nothing" : *other);
    return static_cast<std::size_t>(one - module.begin());
}
