// What every host here is made of: windows that hand their messages on, items taken off a queue, the module's
// calls. These parts record nothing, so that benchmarks are built of them too.
#ifndef TICKMUX_TESTS_SUPPORT_HOST_PARTS_H
#define TICKMUX_TESTS_SUPPORT_HOST_PARTS_H

#include <string>
#include <string_view>

#include "host/tickhost.h"
#include "module/framework/tickmux.h"
#include "module/wire/shapes.h"

// A window whose messages go to sink.OnMessage(message, wParam, lParam).
template <class Sink>
HWND WindowOf(Sink& sink) {
    return tickhost_create_window(
        [](void* context, HWND, uint32_t message, uintptr_t wParam, intptr_t lParam) -> intptr_t {
            static_cast<Sink*>(context)->OnMessage(message, wParam, lParam);
            return 0;
        },
        &sink);
}

// The module by its exported functions. It does not write into what it is given.
struct ModuleForm {
    static uintptr_t Regist(HWND window, const char* map) { return RegistMap(window, map); }
    static void Unregist(uintptr_t map) { UnregistMap(map); }
    static int Init(uintptr_t map, const std::string& text) {
        return InitMap(map, const_cast<char*>(text.c_str()));
    }
    static void Stop(uintptr_t map) { StopMap(map); }
    static void Release(uintptr_t map) { ReleaseMap(map); }
    static int Put(const std::string& packet) {
        return PutRTMPacketToDecoder(const_cast<char*>(packet.data()), static_cast<int>(packet.size()));
    }
    static void EndBatch() { EndRTMUnpackToDecoder(); }
};

struct ScreenToOpen {
    std::string Map;
    std::string Init;
};

// How many bytes of a map's buffers the length of an item does not count: none where packets pass through.
inline std::size_t TagBytesOf(std::string_view map) {
    return map == "RRPASS01_R" ? 0 : sizeof(RequestTag);
}

// Takes one item off the queue of a message and shows its buffer; false: the queue is empty.
template <class Show>
bool Fetch(uintptr_t queue, std::size_t tagBytes, const Show& show) {
    char* data = nullptr;
    int length = 0;
    if (tickhost_take_view_item(reinterpret_cast<void*>(queue), &data, &length) == 0) {
        return false;
    }
    show(std::string_view(data, static_cast<std::size_t>(length) + tagBytes));
    tickhost_free_view_data(data);
    return true;
}

#endif
