#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "host/platform/platform.h"
#include "host/services/services.h"
#include "tests/support/scratch_folder.h"

namespace {

using namespace std::string_literals;

// What the call leaves in a buffer of `size` bytes, behind it the length that it gives.
std::string Text(const char* section, const char* key, const char* otherwise, const std::string& path,
                 DWORD size = 100000) {
    std::string buffer(size + 1, '#');
    const DWORD length = GetPrivateProfileStringA(section, key, otherwise, buffer.data(), size, path.c_str());
    EXPECT_EQ(buffer.back(), '#');
    return buffer.substr(0, std::min(buffer.find('#'), buffer.size())) + "|" + std::to_string(length);
}

}  // namespace

TEST(Profile, FindsValuesAndNumbers) {
    struct Case {
        std::string File;
        const char* Key;  // of section "Main"
        std::string Value;
        int Number;  // -77: the default
    };
    const Case cases[] = {
        {"[Main]\r\nKey=12\r\n", "Key", "12", 12},
        {"\xEF\xBB\xBF[ main ]\n \t key \t=\t -5x \t\r\n", " Key ", "-5x", -5},
        {"[Main]\nKey=\" +7 \"\n", "Key", " +7 ", 0},
        {"[Main]\nKey=\"\"7\"\"\n", "Key", "\"7\"", 0},
        {"[Main]\nKey=\"7'\n", "Key", "\"7'", 0},
        {"[Main]\n;Key=1\n  ; Key=2\nKey=3;4\n", "Key", "3;4", 3},
        {"[Main]\nKey=1\nKey=2\n[Main]\nKey=3\n", "Key", "1", 1},
        {"Key=1\n[Other]\nKey=2\n", "Key", "none", -77},
        {"[Main]\nKey\n=1\n[Main\nKey\0=1\n"s, "Key", "none", -77},
        {"[Main]\nKey=1\0002\n"s, "Key", "1", 1},
        {"[Main]\nKey=2\0001\n"s, "Key", "2", 2},
        {"[Main]\nKey=4294967295\n", "Key", "4294967295", -1},
        {"[Main]\n\xB0\x41=1\n\xB0\x61=2\n", "\xB0\x61", "2", 2},
        {"[Main]\nKey=" + std::string(70000, '8') + "\n", "Key", std::string(70000, '8'), 954437176},
        {"", "Key", "none", -77},
    };
    const ScratchFolder folder;
    for (const Case& one : cases) {  // one file, of which each change has to be seen
        const std::string path = folder.Write("a.ini", one.File);
        EXPECT_EQ(Text("Main", one.Key, "none  ", path),
                  one.Value + "\0|"s + std::to_string(one.Value.size()))
            << one.File.substr(0, 100);
        EXPECT_EQ(static_cast<int>(GetPrivateProfileIntA("Main", one.Key, -77, path.c_str())), one.Number)
            << one.File.substr(0, 100);
    }
}

TEST(Profile, ListsNamesAndCutsToTheBuffer) {
    const ScratchFolder folder;
    const std::string path = folder.Write("a.ini", "[One]\nab=1\ncd=2\n;x=3\n[Two]\n");
    EXPECT_EQ(Text(nullptr, nullptr, "none", path), "One\0Two\0\0|8"s);
    EXPECT_EQ(Text("one", nullptr, "none", path), "ab\0cd\0\0|6"s);
    EXPECT_EQ(Text("Two", nullptr, "none", path), "\0|0"s) << "an empty list";
    EXPECT_EQ(Text("one", nullptr, "none", path, 6), "ab\0c\0\0|4"s);
    EXPECT_EQ(Text(nullptr, nullptr, "none", path, 1), "\0|0"s);
    EXPECT_EQ(Text("One", "ab", "none", path, 2), "1\0|1"s);
    EXPECT_EQ(Text("One", "zz", "none", path, 3), "no\0|2"s);
    EXPECT_EQ(Text("One", "ab", "none", path, 0), "|0");
    EXPECT_EQ(Text("One", "ab", "none", folder.Path("missing.ini")), "none\0|4"s);
    EXPECT_EQ(GetPrivateProfileStringA("One", "ab", "none", nullptr, 10, path.c_str()), 0U);
    EXPECT_EQ(GetPrivateProfileIntA("One", nullptr, 3, path.c_str()), 3U);
}

TEST(Profile, HoldsInterestGroups) {
    const ScratchFolder folder;
    const std::string path = folder.Write(
        "Interest.ini",
        "[GROUP007]\nITEM001=1ABCD      First name\nItem002=\"2EF  \"\nITEM004=lost\n[group999]\nITEM001=" +
            std::string(200, 'n') + "\n[GROUP7]\n[GROUP1000]\n");
    CInterestTable table;
    table.ReadAllGroup(path.c_str());
    const CMarlGroup* const seventh = table.FindGroupNo(7);
    ASSERT_TRUE(seventh != nullptr && seventh->Items.size() == 2);
    EXPECT_EQ(std::string(seventh->Items[0].szKey, 11), "1ABCD      ");
    EXPECT_STREQ(seventh->Items[0].szName, "First name");
    EXPECT_EQ(std::string(seventh->Items[1].szKey, 11), "2EF        ");
    ASSERT_NE(table.FindGroupNo(999), nullptr);
    EXPECT_EQ(std::strlen(table.FindGroupNo(999)->Items[0].szName), 64U);
    EXPECT_EQ(table.FindGroupNo(1000), nullptr);
    table.ReadAllGroup(folder.Path("missing").c_str());
    EXPECT_EQ(table.FindGroupNo(7), nullptr);
}
