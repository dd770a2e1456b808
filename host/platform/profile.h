// profile.h - a private profile file, as it is at this moment.
//
// Whoever asks for a key asks for the file: what was read stays until the file is another.
#ifndef TICKMUX_HOST_PLATFORM_PROFILE_H
#define TICKMUX_HOST_PLATFORM_PROFILE_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class ProfileFile {
public:
    struct Entry {
        std::string_view Key;
        std::string Folded;      // the key as it is looked for
        std::string_view Value;  // without blanks around it and without its quotes
    };
    struct Section {
        std::string_view Name;
        std::string Folded;
        std::vector<Entry> Entries;

        const Entry* Find(std::string_view key) const;  // null: no such key
    };

    // Never null. A file that cannot be read counts as empty; a null path: no file.
    static std::shared_ptr<const ProfileFile> Read(const char* path);

    explicit ProfileFile(std::string text);
    // What a file holds; empty if it cannot be read.
    static std::string WholeText(const std::string& path);
    ProfileFile(const ProfileFile&) = delete;
    ProfileFile& operator=(const ProfileFile&) = delete;
    ~ProfileFile() = default;

    const std::vector<Section>& Sections() const { return m_Sections; }
    const Section* Find(std::string_view section) const;  // null: no such section
    const Entry* Find(std::string_view section, std::string_view key) const;

private:
    void TakeLine(std::string_view line);

    std::string m_Text;  // what names and values point into
    std::vector<Section> m_Sections;
};

#endif
