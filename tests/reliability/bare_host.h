// A host that does little itself, so that what is measured is the module: it counts what happens instead of
// writing it down, and nothing that it allocates when it is called counts or fails.
#ifndef TICKMUX_TESTS_RELIABILITY_BARE_HOST_H
#define TICKMUX_TESTS_RELIABILITY_BARE_HOST_H

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/reliability/allocations.h"
#include "tests/support/samples.h"
#include "tests/support/terminal.h"

using Buffers = std::vector<std::string>;

// Of tests that may be long: ./test long sets the variable.
inline int ShortOrLong(int shortForm, int longForm) {
    return std::getenv("TICKMUX_LONG_TESTS") == nullptr ? shortForm : longForm;
}

class BareHost : public Terminal {
public:
    BareHost() {
        tickhost_set_function_sink(nullptr, nullptr);
        tickhost_set_tick_count(1, 0);
    }
    void OnMessage(uint32_t message, uintptr_t wParam, intptr_t lParam) override {
        const heap::Spared spared;
        Terminal::OnMessage(message, wParam, lParam);
    }
    void Happened(const std::string& event) override {
        nItems += event == "view" ? 1 : 0;
        nRequests += event.starts_with("add") || event.starts_with("delete") ? 1 : 0;
    }

    int nItems = 0;  // of which windows were told
    int nRequests = 0;
    SampleWorld World;
};

// One map and its window, which keeps what it fetches.
class BareScreen : public Screen {
public:
    BareScreen(BareHost& host, const Sample& sample)
        : Screen(host, TagBytesOf(sample.Map)), m_Sample(sample) {
        OnBuffer([this](std::string_view buffer) {
            if (Keeps) {
                Received.emplace_back(buffer);
            }
        });
    }
    void OnMessage(uint32_t message, uintptr_t wParam, intptr_t lParam) override {
        const heap::Spared spared;
        Screen::OnMessage(message, wParam, lParam);
    }

    bool Regist() { return Screen::Regist(m_Sample.Map); }
    // The text as it is, without a block of its own.
    int Init(const std::string& text) const { return ModuleForm::Init(Handle(), text); }
    int InitFirst() const { return Init(m_Sample.First); }
    int InitSecond() const { return Init(m_Sample.Second); }
    bool Start() { return Regist() && InitFirst() == 1; }
    void Feed() const {
        for (const std::string& packet : m_Sample.Packets) {
            ModuleForm::Put(packet);
        }
    }
    // The clock goes on, so that no chart holds its row back.
    static void EndBatch() {
        static uint32_t s_nNow = 0;
        tickhost_set_tick_count(1, s_nNow += 1000);
        ModuleForm::EndBatch();
    }

    bool Keeps = true;
    Buffers Received;

private:
    const Sample& m_Sample;
};

#endif
