// The plain form by the functions that the module exports.
#ifndef TICKMUX_BENCH_SUPPORT_PLAIN_FORM_H
#define TICKMUX_BENCH_SUPPORT_PLAIN_FORM_H

#include <string>

#include "bench/plain/framework.h"

struct PlainForm {
    uintptr_t Regist(HWND window, const char* map) { return Module.RegistMap(window, map); }
    void Unregist(uintptr_t map) { Module.UnregistMap(map); }
    int Init(uintptr_t map, const std::string& text) { return Module.InitMap(map, text.c_str()); }
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

#endif
