// The module, loaded at run time: its ten functions and nothing else.
#ifndef TICKMUX_TERMINAL_MODULE_H
#define TICKMUX_TERMINAL_MODULE_H

#include <string>

#include "module/framework/tickmux.h"

namespace tools {

class Module {
public:
    // BadInput if the library cannot be loaded or lacks one of the functions. tickhost.h tells what must be
    // set before.
    explicit Module(const std::string& path);
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module();

    // Where the module lies if nothing else is said: ../lib beside the running program.
    static std::string DefaultPath();

private:
    void* const m_pLibrary;

public:
    decltype(&::RegistMap) const RegistMap;
    decltype(&::UnregistMap) const UnregistMap;
    decltype(&::InitMap) const InitMap;
    decltype(&::StopMap) const StopMap;
    decltype(&::ReleaseMap) const ReleaseMap;
    decltype(&::GetPacketDecoderInst) const GetPacketDecoderInst;
    decltype(&::PutRTMPacketToDecoder) const PutRTMPacketToDecoder;
    decltype(&::EndRTMUnpackToDecoder) const EndRTMUnpackToDecoder;
    decltype(&::SetMutexNameToDecoder) const SetMutexNameToDecoder;
    decltype(&::StopView) const StopView;
};

}  // namespace tools

#endif
