// paths.h - where a path of the module lies on this machine.
#ifndef TICKMUX_HOST_PLATFORM_PATHS_H
#define TICKMUX_HOST_PLATFORM_PATHS_H

#include <string>

inline constexpr char kDefaultDriveC[] = "drive_c";

// The folder that stands for drive C; the text must last.
void SetDriveC(const char* folder);

// Backslashes become separators, "c:" in front becomes the folder of drive C. The folder is not made: where
// it does not exist, nothing of drive C can be read or written.
std::string HostPath(const char* path);

#endif
