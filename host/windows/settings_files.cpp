// Settings files as the stand-in's services read them: anew each time.
#include "host/platform/profile.h"

std::shared_ptr<const ProfileFile> ProfileFile::Read(const char* path) {
    return std::make_shared<const ProfileFile>(path == nullptr ? std::string() : WholeText(path));
}
