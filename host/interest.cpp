// The user's interest groups, from the file that tickhost.h tells of.
#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

#include "host/profile.h"
#include "host/services.h"

namespace {

constexpr int kGroups = 1000;

// "GROUP" and 7 give "GROUP007".
std::string Numbered(std::string_view stem, uint32_t number) {
    const std::string digits = std::to_string(number);
    return std::string(stem).append(digits.size() < 3 ? 3 - digits.size() : 0, '0').append(digits);
}

MarlGroupItem ItemOf(uint32_t number, std::string_view value) {
    MarlGroupItem item{number, {}, {}};
    const std::string_view key = value.substr(0, sizeof item.szKey);
    std::fill(key.copy(item.szKey, key.size()) + std::begin(item.szKey), std::end(item.szKey), ' ');
    value.substr(key.size()).copy(item.szName, sizeof item.szName - 1);
    return item;
}

CMarlGroup GroupOf(int number, const ProfileFile::Section& section) {
    CMarlGroup group{number, {}};
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
    const ProfileFile file(path);
    for (int number = 0; number < kGroups; ++number) {
        if (const ProfileFile::Section* const section =
                file.Find(Numbered("GROUP", static_cast<uint32_t>(number)))) {
            m_Groups.emplace(number, GroupOf(number, *section));
        }
    }
}

const CMarlGroup* CInterestTable::FindGroupNo(int number) const {
    const auto found = m_Groups.find(number);
    return found == m_Groups.end() ? nullptr : &found->second;
}
