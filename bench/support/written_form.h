// A form that bench/ has written, by the functions that the module exports.
#ifndef TICKMUX_BENCH_SUPPORT_WRITTEN_FORM_H
#define TICKMUX_BENCH_SUPPORT_WRITTEN_FORM_H

#include <string>

#include "bench/competent/competent.h"
#include "bench/plain/plain.h"

template <class Style>
struct WrittenForm {
    uintptr_t Regist(HWND window, const char* map) { return Module.RegistMap(window, map); }
    void Unregist(uintptr_t map) { Module.UnregistMap(map); }
    int Init(uintptr_t map, const std::string& text) { return Module.InitMap(map, text.c_str()); }
    void Put(const std::string& packet) {
        Module.PutRTMPacketToDecoder(packet.data(), static_cast<int>(packet.size()));
    }
    void EndBatch() { Module.EndRTMUnpackToDecoder(); }

    forms::Module<Style> Module;
};

using PlainForm = WrittenForm<plain::Style>;
using CompetentForm = WrittenForm<competent::Style>;

#endif
