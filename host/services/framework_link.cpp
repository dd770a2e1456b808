// What the terminal's framework gives an extension module: its link, and the invalid-argument exception.
#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

#include "host/services/exports.h"
#include "host/services/resets.h"
#include "host/services/services.h"
#ifdef _WIN32
#include "host/windows/imports.h"
#endif

namespace {

std::atomic<bool> g_Refuses = false;

struct Links {
    std::mutex Lock;
    std::multimap<const AFX_EXTENSION_MODULE*, std::unique_ptr<CDynLinkLibrary>> OfModule;
};

Links& TheLinks() {
    static auto* const links = new Links;  // modules unload at any time, also last of all
    return *links;
}

}  // namespace

CInvalidArgException::~CInvalidArgException() = default;

const char* CInvalidArgException::what() const noexcept {
    return "invalid argument";
}

void AfxThrowInvalidArgException() {
    static CInvalidArgException exception;
    throw &exception;  // NOLINT(misc-throw-by-value-catch-by-reference): as the framework does
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE module) {
    if (g_Refuses) {
        return FALSE;
    }
#ifdef _WIN32
    LeadImports(module);
#endif
    state.bInitialized = TRUE;
    state.hModule = module;
    return TRUE;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state) {
    Links& links = TheLinks();
    const std::lock_guard hold(links.Lock);
    links.OfModule.emplace(&state, nullptr)->second.reset(this);
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state) {
    Links& links = TheLinks();
    const std::lock_guard hold(links.Lock);
    links.OfModule.erase(&state);
    state.bInitialized = FALSE;
}

void tickhost_refuse_attach(int on) {
    g_Refuses = on != 0;
}

void ResetFramework() {
    g_Refuses = false;
}
