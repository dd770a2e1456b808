// A private profile file, read anew at each call. A missing file is one without keys.
#ifndef TICKMUX_MODULE_FRAMEWORK_SETTINGS_FILE_H
#define TICKMUX_MODULE_FRAMEWORK_SETTINGS_FILE_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "host/platform/platform.h"
#include "module/wire/codecs.h"

class SettingsFile {
public:
    // `name` begins with the separator. Throws if there is no memory for the path: settings are not to be
    // taken for missing.
    SettingsFile(const char* folder, const char* name) : m_Path(std::string(folder) + name) {}

    const char* Path() const { return m_Path.c_str(); }

    int32_t Integer(const char* section, const char* key, int32_t otherwise) const {
        return static_cast<int32_t>(GetPrivateProfileIntA(section, key, otherwise, Path()));
    }

    // The value, cut to the array's room, with its zero byte; gives its length. Missing: empty.
    template <std::size_t Room>
    int Text(const char* section, const char* key, char (&text)[Room]) const {
        return static_cast<int>(GetPrivateProfileStringA(section, key, "", text, Room, Path()));
    }

    // A text's number; if the text is missing or empty 0, or `otherwise`.
    template <std::size_t Room>
    int32_t Long(const char* section, const char* key) const {
        char text[Room];
        return AsciiToLong(text, Text(section, key, text));
    }
    template <std::size_t Room>
    double Double(const char* section, const char* key, double otherwise = 0.0) const {
        char text[Room];
        const int length = Text(section, key, text);
        return length == 0 ? otherwise : TextToDouble(text, length);
    }

private:
    std::string m_Path;
};

#endif
