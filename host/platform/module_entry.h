// module_entry.h - has the module's entry point called where the loader does not do it.
//
// On Windows the loader calls DllMain behind the construction of all static objects and before their
// destruction. Elsewhere MODULE_ENTRY, standing last in the file of the module's static objects, does the
// same: its object is constructed behind them and destroyed before them. A refused attach cannot fail the
// load here; the module then stays not ready.
#ifndef TICKMUX_HOST_PLATFORM_MODULE_ENTRY_H
#define TICKMUX_HOST_PLATFORM_MODULE_ENTRY_H

#include "host/platform/platform.h"

#ifdef _WIN32

#define MODULE_ENTRY(entry)

#else

class ModuleEntry {
public:
    using Entry = BOOL (*)(HINSTANCE instance, DWORD reason, void* reserved);

    explicit ModuleEntry(Entry entry)
        : m_pEntry(entry), m_bAttached(entry(Instance(), DLL_PROCESS_ATTACH, nullptr) != FALSE) {}
    ~ModuleEntry() {
        if (m_bAttached) {
            m_pEntry(Instance(), DLL_PROCESS_DETACH, nullptr);
        }
    }
    ModuleEntry(const ModuleEntry&) = delete;
    ModuleEntry& operator=(const ModuleEntry&) = delete;

private:
    // An address within the module tells it from others.
    HINSTANCE Instance() { return reinterpret_cast<HINSTANCE>(this); }

    Entry m_pEntry;
    bool m_bAttached;
};

#define MODULE_ENTRY(entry)           \
    namespace {                       \
    ModuleEntry g_ModuleEntry(entry); \
    }

#endif
#endif
