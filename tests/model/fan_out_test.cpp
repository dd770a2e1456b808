// Many screens on few keys, whose windows open, close and turn screens, feed and close batches from within
// their messages: the module's order of sends against that of a walk over all screens, the way in which a
// manager is written first.
#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "feed/random.h"
#include "module/layouts/RINTIK01.h"
#include "module/layouts/RITRDE02.h"
#include "tests/support/inquiries.h"
#include "tests/support/packets.h"
#include "tests/support/terminal.h"

namespace {

// A list of rows waits for the batch end, a chart's row goes out at once; a board follows many keys.
enum Kind { kList, kChart, kBoard };
const char* const kMaps[] = {"RINTIK01_R", "RINTIK11_R", "RITRDE02_R"};
const char* const kKeys[] = {"COMP", "MAIN", "    "};

struct Sent {
    int Screen;
    std::size_t Rows;
    bool operator==(const Sent& other) const = default;
};

void PrintTo(const Sent& sent, std::ostream* out) {
    *out << "screen " << sent.Screen << ": " << sent.Rows;
}

// What a window does with a message, and the test with a step, by one stream of choices.
template <class System>
class Play {
public:
    explicit Play(uint64_t seed) : m_Dice(seed), m_System(*this) {}

    std::vector<Sent> Run(int steps) {
        for (int step = 0; step < steps; ++step) {
            Act(m_Dice.Below(100));
        }
        return std::move(m_Sent);
    }

    void OnSent(int screen, std::size_t rows) {
        m_Sent.push_back({screen, rows});
        if (m_nDepth < 3 && m_Dice.Chance(15)) {
            ++m_nDepth;
            m_Within.push_back(screen);
            Act(m_Dice.Below(100));
            m_Within.pop_back();
            --m_nDepth;
        }
    }

private:
    void Act(int64_t what) {
        const auto kind = static_cast<Kind>(m_Dice.Below(3));
        const std::string key = kKeys[m_Dice.Below(3)];
        const int screen = m_nScreens == 0 ? -1 : static_cast<int>(m_Dice.Below(m_nScreens));
        const bool stands = screen >= 0 && m_System.Stands(screen);
        if (what < 40) {
            m_System.Put(key);
        } else if (what < 54) {
            m_System.EndBatch();
        } else if (what < 67) {
            m_System.Open(m_nScreens++, kind);
            m_System.Init(m_nScreens - 1, key);
        } else if (what < 79) {
            stands ? m_System.Init(screen, key) : void();
        } else if (what < 83) {
            stands ? m_System.Stop(screen) : void();
        } else if (what < 87) {
            stands ? m_System.Release(screen) : void();
        } else if (stands && std::find(m_Within.begin(), m_Within.end(), screen) == m_Within.end()) {
            m_System.Close(screen);  // no screen closes itself from within its message
        }
    }

    tools::Random m_Dice;
    System m_System;
    int m_nScreens = 0;
    int m_nDepth = 0;
    std::vector<int> m_Within;
    std::vector<Sent> m_Sent;
};

// ------------------------------------------------------------------ the walk over all

class WalkOverAll {
public:
    explicit WalkOverAll(Play<WalkOverAll>& play) : m_Play(play) {}

    bool Stands(int screen) const { return m_All[static_cast<std::size_t>(screen)].Stands; }
    void Open(int /*screen*/, Kind kind) { m_All.push_back({kind}); }
    void Init(int screen, const std::string& key) {
        Map& map = At(screen);
        map.Key = key;
        map.Rows = 0;
        map.Active = true;
        map.Stopped = false;
    }
    void Stop(int screen) {
        At(screen).Stopped = true;
        At(screen).Active = At(screen).Changed = false;
    }
    void Release(int screen) {
        At(screen).Key = "    ";
        At(screen).Active = At(screen).Changed = false;
    }
    void Close(int screen) {
        Release(screen);
        At(screen).Stands = false;
    }
    // Whether somebody comes next is known before a call: the last one stays the last.
    void Put(const std::string& key) {
        for (std::size_t i = Next(0); i < m_All.size();) {
            const std::size_t end = Next(i + 1) < m_All.size() ? SIZE_MAX : i + 1;
            Take(static_cast<int>(i), key);
            i = std::min(end, Next(i + 1));
            if (end != SIZE_MAX) {
                return;
            }
        }
    }
    void EndBatch() {
        for (std::size_t i = 0; i < m_All.size(); ++i) {
            Map& map = m_All[i];
            if (map.Stands && map.Changed && !map.Stopped) {
                map.Changed = false;
                if (map.Rows > 0) {
                    m_Play.OnSent(static_cast<int>(i), std::exchange(map.Rows, 0));
                }
            }
        }
    }

private:
    struct Map {
        Kind What;
        std::string Key = "    ";
        std::size_t Rows = 0;
        bool Active = false, Stopped = true, Changed = false, Stands = true;
    };

    Map& At(int screen) { return m_All[static_cast<std::size_t>(screen)]; }
    std::size_t Next(std::size_t place) const {
        while (place < m_All.size() && !m_All[place].Stands) {
            ++place;
        }
        return place;
    }
    void Take(int screen, const std::string& key) {
        Map& map = At(screen);
        if (!map.Active || map.Stopped || map.Key != key) {
            return;
        }
        if (map.What == kChart) {
            m_Play.OnSent(screen, 1);
        } else {
            map.Rows = map.What == kBoard ? 1 : map.Rows + 1;
            map.Changed = true;
        }
    }

    Play<WalkOverAll>& m_Play;
    std::deque<Map> m_All;
};

// ------------------------------------------------------------------ the module

class Module {
public:
    explicit Module(Play<Module>& play) : m_Play(play) {}

    bool Stands(int screen) const { return m_Screens[static_cast<std::size_t>(screen)]->Map != 0; }
    void Open(int screen, Kind kind) {
        m_Screens.push_back(std::make_unique<Window>(Window{*this, screen, kind}));
        m_Screens.back()->Handle = WindowOf(*m_Screens.back());
        m_Screens.back()->Map = RegistMap(m_Screens.back()->Handle, kMaps[kind]);
    }
    void Init(int screen, const std::string& key) {
        Window& window = At(screen);
        const std::string text = window.What == kList ? "X1" + key + std::string(30, ' ')
                                 : window.What == kChart
                                     ? "X1" + Left(key, 10) + "A" + Head("..") + Block("0", "44")
                                     : std::string(IndexBoardInquiry({key}));
        EXPECT_EQ(ModuleForm::Init(window.Map, text), 1);
    }
    void Stop(int screen) { StopMap(At(screen).Map); }
    void Release(int screen) { ReleaseMap(At(screen).Map); }
    void Close(int screen) { UnregistMap(std::exchange(At(screen).Map, 0)); }
    static void Put(const std::string& key) { ModuleForm::Put(IndexUpdate(key).Bytes()); }
    static void EndBatch() { EndRTMUnpackToDecoder(); }

    ~Module() {
        for (const auto& window : m_Screens) {
            if (window->Map != 0) {
                UnregistMap(window->Map);
            }
            tickhost_destroy_window(window->Handle);
        }
    }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

private:
    struct Window {
        Module& Owner;
        int Number;
        Kind What;
        HWND Handle = nullptr;
        tickmux_handle Map = 0;

        void OnMessage(uint32_t message, uintptr_t wParam, intptr_t /*lParam*/) const {
            if (message == WM_TICKMUX_VIEW) {
                std::size_t size = 0;
                Fetch(wParam, sizeof(RequestTag), [&size](std::string_view buffer) { size = buffer.size(); });
                const std::size_t rows =
                    What == kList ? (size - sizeof(PlainRows)) / sizeof(IndexTickRow) : 1;
                Owner.m_Play.OnSent(Number, rows);
            }
        }
    };

    Window& At(int screen) { return *m_Screens[static_cast<std::size_t>(screen)]; }

    Play<Module>& m_Play;
    Terminal m_Host;  // sets the world up, and takes the requests
    std::vector<std::unique_ptr<Window>> m_Screens;
};

TEST(FanOut, ManyScreensOnFewKeysAreServedAsByAWalkOverAll) {
    for (uint64_t seed = 1; seed <= 300 && !testing::Test::HasFailure(); ++seed) {
        EXPECT_EQ(Play<Module>(seed).Run(800), Play<WalkOverAll>(seed).Run(800)) << "seed " << seed;
    }
}

}  // namespace
