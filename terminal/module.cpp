#include "terminal/module.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

#include "terminal/errors.h"

namespace tools {

namespace {

constexpr char kRemedy[] = "; build the module, or name it with --module";

void* Load(const std::string& path) {
    // A name without a folder would be searched for on the system.
    std::error_code error;
    const std::filesystem::path file = std::filesystem::absolute(path, error);
    void* library = error ? nullptr : dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        throw BadInput(path + ": cannot be loaded (" + (error ? error.message() : dlerror()) + ")" + kRemedy);
    }
    return library;
}

void* Find(void* library, const char* name) {
    void* symbol = dlsym(library, name);
    if (symbol == nullptr) {
        dlclose(library);
        throw BadInput(std::string("the module has no function ") + name + kRemedy);
    }
    return symbol;
}

}  // namespace

#define FIND(name) name(reinterpret_cast<decltype(&::name)>(Find(m_pLibrary, #name)))

Module::Module(const std::string& path)
    : m_pLibrary(Load(path)),
      FIND(RegistMap),
      FIND(UnregistMap),
      FIND(InitMap),
      FIND(StopMap),
      FIND(ReleaseMap),
      FIND(GetPacketDecoderInst),
      FIND(PutRTMPacketToDecoder),
      FIND(EndRTMUnpackToDecoder),
      FIND(SetMutexNameToDecoder),
      FIND(StopView) {}

#undef FIND

Module::~Module() {
    dlclose(m_pLibrary);
}

std::string Module::DefaultPath() {
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    return (program.parent_path().parent_path() / "lib" / "libtickmux.so").string();
}

}  // namespace tools
