// paths.h - where a path of the module lies on this machine.
#ifndef TICKMUX_HOST_PATHS_H
#define TICKMUX_HOST_PATHS_H

#include <string>

// Backslashes become separators, "c:" in front becomes the folder "DriveC". The folder is not made: where it
// does not exist, nothing of drive C can be read or written.
std::string HostPath(const char* path);

#endif
