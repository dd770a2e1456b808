// The clocks and drive C of the module, held still or led elsewhere: the calls that it imports are its only
// way to them.
#include <atomic>
#include <cstdint>
#include <cstring>
#include <mutex>
#include <optional>
#include <string>

#include "host/platform/clocks.h"
#include "host/platform/guarded.h"
#include "host/platform/paths.h"
#include "host/windows/imports.h"

namespace {

struct HeldTime {
    std::mutex Lock;
    std::optional<SYSTEMTIME> Time;
};

HeldTime g_Local;
HeldTime g_System;
std::atomic<uint64_t> g_HeldTicks = 0;  // bit 32: held

// The program's own clocks are held as the module's are.
void LeadProgram() {
    static const bool led = (LeadImports(GetModuleHandleA(nullptr)), true);
    static_cast<void>(led);
}

void Hold(HeldTime& clock, const SYSTEMTIME* time) {
    LeadProgram();
    const std::lock_guard hold(clock.Lock);
    clock.Time = time == nullptr ? std::nullopt : std::optional(*time);
}

void Read(HeldTime& clock, void(WINAPI* machine)(SYSTEMTIME*), SYSTEMTIME* time) {
    const std::lock_guard hold(clock.Lock);
    if (clock.Time.has_value()) {
        *time = *clock.Time;
    } else {
        machine(time);
    }
}

void WINAPI LocalTime(SYSTEMTIME* time) {
    Read(g_Local, &GetLocalTime, time);
}

void WINAPI SystemTime(SYSTEMTIME* time) {
    Read(g_System, &GetSystemTime, time);
}

DWORD WINAPI TickCount() {
    const uint64_t held = g_HeldTicks;
    return held != 0 ? static_cast<DWORD>(held) : GetTickCount();
}

BOOL WINAPI MakeDirectory(const char* path, SECURITY_ATTRIBUTES* attributes) {
    return path == nullptr
               ? FALSE
               : OrRefuse(FALSE, [&] { return CreateDirectoryA(HostPath(path).c_str(), attributes); });
}

struct Hook {
    const char* Name;
    ULONG_PTR Instead;
};
const Hook kHooks[] = {
    {"GetLocalTime", reinterpret_cast<ULONG_PTR>(&LocalTime)},
    {"GetSystemTime", reinterpret_cast<ULONG_PTR>(&SystemTime)},
    {"GetTickCount", reinterpret_cast<ULONG_PTR>(&TickCount)},
    {"CreateDirectoryA", reinterpret_cast<ULONG_PTR>(&MakeDirectory)},
};

void Replace(ULONG_PTR& place, ULONG_PTR address) {
    DWORD former = 0;
    if (VirtualProtect(&place, sizeof(place), PAGE_READWRITE, &former) != FALSE) {
        place = address;
        VirtualProtect(&place, sizeof(place), former, &former);
    }
}

}  // namespace

void LeadImports(HINSTANCE module) {
    auto* const base = reinterpret_cast<char*>(module);
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const head = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports = head->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (imports.VirtualAddress == 0) {
        return;
    }
    const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
    for (; library->Name != 0; ++library) {
        const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
        auto* place = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++place) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) {
                continue;
            }
            const auto* const import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
            for (const Hook& hook : kHooks) {
                if (std::strcmp(reinterpret_cast<const char*>(import->Name), hook.Name) == 0) {
                    Replace(reinterpret_cast<ULONG_PTR&>(place->u1.Function), hook.Instead);
                }
            }
        }
    }
}

void HoldLocalTime(const SYSTEMTIME* time) {
    Hold(g_Local, time);
}

void HoldSystemTime(const SYSTEMTIME* time) {
    Hold(g_System, time);
}

void HoldTickCount(uint32_t milliseconds) {
    LeadProgram();
    g_HeldTicks = uint64_t{1} << 32 | milliseconds;
}

void ReleaseTickCount() {
    g_HeldTicks = 0;
}
