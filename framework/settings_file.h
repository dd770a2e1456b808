// A private profile file, read anew at each call. A missing file is one without keys.
#ifndef TICKMUX_FRAMEWORK_SETTINGS_FILE_H
#define TICKMUX_FRAMEWORK_SETTINGS_FILE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "framework/codecs.h"
#include "host/platform.h"

class SettingsFile {
public:
    // `name` begins with the separator. Without memory for the path the file counts as missing.
    SettingsFile(const char* folder, const char* name) {
        const std::size_t folderLength = std::strlen(folder);
        m_pPath.reset(new (std::nothrow) char[folderLength + std::strlen(name) + 1]);
        if (m_pPath != nullptr) {
            std::memcpy(m_pPath.get(), folder, folderLength);
            std::strcpy(m_pPath.get() + folderLength, name);
        }
    }

    // Null without memory.
    const char* Path() const { return m_pPath.get(); }

    int32_t Integer(const char* section, const char* key, int32_t otherwise) const {
        return m_pPath == nullptr
                   ? otherwise
                   : static_cast<int32_t>(GetPrivateProfileIntA(section, key, otherwise, m_pPath.get()));
    }

    // The value, cut to the array's room, with its zero byte; gives its length. Missing: empty.
    template <std::size_t Room>
    int Text(const char* section, const char* key, char (&text)[Room]) const {
        text[0] = '\0';
        return m_pPath == nullptr
                   ? 0
                   : static_cast<int>(GetPrivateProfileStringA(section, key, "", text, Room, m_pPath.get()));
    }

    // A text's number; `otherwise` if the text is missing or empty.
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
    std::unique_ptr<char[]> m_pPath;
};

#endif
