// settings.h - the texts that tickhost_set_text sets.
#ifndef TICKMUX_HOST_SERVICES_SETTINGS_H
#define TICKMUX_HOST_SERVICES_SETTINGS_H

#include <cstddef>

enum class Setting : std::size_t {
    UserGrade,
    MenuGrade,
    HashUserID,
    UserID,
    BaseUserID,
    InnerTr,
    UserDir,
    DataDir,
    DriveC,
    Count
};

// The text stays valid until the process ends, also when the setting is changed meanwhile.
const char* SettingText(Setting setting);

#endif
