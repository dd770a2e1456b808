// The functions that the module exports, as far as benchmarks call them, over the four screens: a list of
// screens for each packet type, all of which are asked.
//
// A Style is codecs and containers: bench/plain/plain.h and bench/competent/competent.h have one each.
#ifndef TICKMUX_BENCH_FORMS_MODULE_H
#define TICKMUX_BENCH_FORMS_MODULE_H

#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include "bench/forms/CRSITST01.h"
#include "bench/forms/CRSODER01.h"
#include "bench/forms/CRSTICK11.h"
#include "bench/forms/CRSTRDE01.h"

namespace forms {

template <class Style>
class Module {
public:
    using Handle = uintptr_t;

    Handle RegistMap(HWND window, const std::string& map) {
        Screen* screen = NewScreen(window, map);
        if (screen != nullptr) {
            m_Screens.push_back(screen);
            for (const char type : screen->GetPacketTypes()) {
                m_TypeLists[type - kFirstPacketType].push_back(screen);
            }
        }
        return reinterpret_cast<Handle>(screen);
    }

    void UnregistMap(Handle handle) {
        auto* screen = reinterpret_cast<Screen*>(handle);
        std::erase(m_Screens, screen);
        for (const char type : screen->GetPacketTypes()) {
            std::erase(m_TypeLists[type - kFirstPacketType], screen);
        }
        delete screen;
    }

    int InitMap(Handle handle, const char* buffer) {
        auto* screen = reinterpret_cast<Screen*>(handle);
        screen->m_bActive = screen->Init(buffer);
        return screen->m_bActive;
    }

    void PutRTMPacketToDecoder(const char* packet, int length) {
        const int index = *packet - kFirstPacketType;
        if (index < 0 || index >= kPacketTypes) {
            return;
        }
        for (Screen* screen : m_TypeLists[index]) {
            if (screen->m_bActive != 0) {
                screen->PutPacket(packet, length);
            }
        }
    }

    void EndRTMUnpackToDecoder() {
        for (Screen* screen : m_Screens) {
            if (screen->m_bChanged != 0) {
                screen->EndUnpack();
                screen->m_bChanged = 0;
            }
        }
    }

private:
    static Screen* NewScreen(HWND window, const std::string& map) {
        if (map == "RSITST01_R") {
            return new CRSITST01<Style>(window);
        }
        if (map == "RSODER01_R") {
            return new CRSODER01<Style>(window);
        }
        if (map == "RSTICK11_R") {
            return new CRSTICK11<Style>(window);
        }
        return map == "RSTRDE01_R" ? new CRSTRDE01<Style>(window) : nullptr;
    }

    using Screens = typename Style::template Sequence<Screen*>;

    Screens m_Screens;
    Screens m_TypeLists[kPacketTypes];
};

}  // namespace forms

#endif
