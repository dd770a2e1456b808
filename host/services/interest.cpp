// The user's interest groups, from the file that tickhost.h tells of.
#include <algorithm>
#include <charconv>
#include <iterator>
#include <string>
#include <string_view>

#include "host/platform/profile.h"
#include "host/services/services.h"

namespace {

constexpr std::size_t kDigits = 3;

// "GROUP" and 7 give "GROUP007".
std::string Numbered(std::string_view stem, uint32_t number) {
    const std::string digits = std::to_string(number);
    return std::string(stem)
        .append(digits.size() < kDigits ? kDigits - digits.size() : 0, '0')
        .append(digits);
}

// What stands behind the stem; 0 for another name, which then is not that of group 0.
uint32_t NumberIn(std::string_view name) {
    uint32_t number = 0;
    const std::string_view digits = name.substr(name.size() - std::min(name.size(), kDigits));
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

MarlGroupItem ItemOf(uint32_t number, std::string_view value) {
    MarlGroupItem item{number, {}, {}};
    const std::string_view key = value.substr(0, sizeof item.szKey);
    std::fill(key.copy(item.szKey, key.size()) + std::begin(item.szKey), std::end(item.szKey), ' ');
    value.substr(key.size()).copy(item.szName, sizeof item.szName - 1);
    return item;
}

CMarlGroup GroupOf(uint32_t number, const ProfileFile::Section& section) {
    CMarlGroup group{static_cast<int>(number), {}};
    for (uint32_t item = 1; const ProfileFile::Entry* const entry = section.Find(Numbered("ITEM", item));
         ++item) {
        group.Items.push_back(ItemOf(item, entry->Value));
    }
    return group;
}

}  // namespace

CInterestTable::CInterestTable() = default;

CInterestTable::~CInterestTable() = default;

void CInterestTable::ReadAllGroup(CString path) {
    m_Groups.clear();
    const auto file = ProfileFile::Read(path);
    for (const ProfileFile::Section& section : file->Sections()) {
        const uint32_t number = NumberIn(section.Name);
        if (file->Find(Numbered("GROUP", number)) == &section) {
            m_Groups.emplace(static_cast<int>(number), GroupOf(number, section));
        }
    }
}

const CMarlGroup* CInterestTable::FindGroupNo(int number) const {
    const auto found = m_Groups.find(number);
    return found == m_Groups.end() ? nullptr : &found->second;
}
