// The calls for private profile files.
#include <algorithm>
#include <string>
#include <string_view>

#include "host/platform/guarded.h"
#include "host/platform/platform.h"
#include "host/platform/profile.h"

namespace {

DWORD Answer(std::string_view text, char* buffer, DWORD size) {
    const std::size_t length = std::min<std::size_t>(text.size(), size - 1);
    buffer[text.copy(buffer, length)] = '\0';
    return static_cast<DWORD>(length);
}

// A list that is cut ends with two zero bytes as well.
DWORD AnswerList(std::string_view list, char* buffer, DWORD size) {
    if (list.size() < size) {
        return Answer(list, buffer, size);
    }
    const std::size_t length = size < 2 ? 0 : size - 2;
    std::fill(buffer + list.copy(buffer, length), buffer + size, '\0');
    return static_cast<DWORD>(length);
}

template <class Rows, class Name>
std::string Names(const Rows& rows, Name name) {
    std::string list;
    for (const auto& row : rows) {
        list.append(row.*name).push_back('\0');
    }
    return list;
}

}  // namespace

UINT GetPrivateProfileIntA(const char* section, const char* key, int defaultValue, const char* path) {
    const auto otherwise = static_cast<UINT>(defaultValue);
    if (section == nullptr || key == nullptr) {
        return otherwise;
    }
    return OrRefuse(otherwise, [&] {
        const auto file = ProfileFile::Read(path);
        const ProfileFile::Entry* const entry = file->Find(section, key);
        if (entry == nullptr) {
            return otherwise;
        }
        std::string_view digits = entry->Value;
        const bool negative = !digits.empty() && digits.front() == '-';
        if (negative || (!digits.empty() && digits.front() == '+')) {
            digits.remove_prefix(1);
        }
        UINT number = 0;  // wraps beyond 32 bits
        for (const char digit : digits) {
            if (digit < '0' || digit > '9') {
                break;
            }
            number = number * 10 + static_cast<UINT>(digit - '0');
        }
        return negative ? 0 - number : number;
    });
}

DWORD GetPrivateProfileStringA(const char* section, const char* key, const char* defaultValue, char* buffer,
                               DWORD size, const char* path) {
    if (buffer == nullptr || size == 0) {
        return 0;
    }
    *buffer = '\0';
    return OrRefuse(DWORD{0}, [&] {
        const auto file = ProfileFile::Read(path);
        if (section == nullptr) {
            return AnswerList(Names(file->Sections(), &ProfileFile::Section::Name), buffer, size);
        }
        if (key == nullptr) {
            const ProfileFile::Section* const found = file->Find(section);
            return found == nullptr
                       ? AnswerList({}, buffer, size)
                       : AnswerList(Names(found->Entries, &ProfileFile::Entry::Key), buffer, size);
        }
        if (const ProfileFile::Entry* const entry = file->Find(section, key)) {
            return Answer(entry->Value, buffer, size);
        }
        const std::string_view otherwise = defaultValue == nullptr ? "" : defaultValue;
        return Answer(otherwise.substr(0, otherwise.find_last_not_of(' ') + 1), buffer, size);
    });
}
