#include "module/framework/init_reader.h"

#include <gtest/gtest.h>

#include "tests/support/fields.h"
#include "tests/support/inquiries.h"

namespace {

struct TwoChars {
    char Value[2];
};

// What a text of two-byte rows reads as, at most two of them: "result [rows] remain".
std::string ReadTwo(const std::string& body) {
    const std::string text = "T1" + body;
    InitReader in(text.c_str());
    TwoChars rows[2];
    const bool read = in.ReadRepeatBlock(rows);
    return std::to_string(static_cast<int>(read)) + " [" + Text(rows) + "] " + std::to_string(in.Remain());
}

TEST(InitReader, RepeatBlocksStayWithinTheTextAndTheRoom) {
    EXPECT_EQ(ReadTwo(Block("0", "2", "ab")), "1 [    ] 2") << "the cursor stands behind the head";
    EXPECT_EQ(ReadTwo(Block("1", "2", "ab")), "1 [ab  ] 0");
    EXPECT_EQ(ReadTwo(Block("3", "2", "abcdef")), "1 [abcd] 2") << "items beyond the room stay unread";
    EXPECT_EQ(ReadTwo(Block("2", "2", "abc")), "0 [ab  ] 0") << "cut short";
    EXPECT_EQ(ReadTwo(Block("2", "3", "abcdef")), "1 [abde] 0") << "longer items lose their tail";
    EXPECT_EQ(ReadTwo(Block("2", "1", "ab")), "1 [a b ] 0") << "shorter items end in spaces";
    EXPECT_EQ(ReadTwo(Block("-3", "2", "ab")), "1 [    ] 2");
    EXPECT_EQ(ReadTwo(Block("1", "-9", "ab")), "0 [    ] 0") << "no size below zero moves the cursor back";
    EXPECT_EQ(ReadTwo(Block("9999", "9999", "ab")), "0 [    ] 0");
    EXPECT_EQ(ReadTwo(Block("x", "y")), "1 [    ] 0");
    EXPECT_EQ(ReadTwo(std::string(23, ' ')), "0 [    ] 23") << "no whole head: nothing moves";
}

TEST(InitReader, ShortTextsHaveAShortTagAndNoBody) {
    const auto tag = [](const char* text) { return Text(InitReader(text).Tag()); };
    EXPECT_EQ(tag("T1body"), "T1");
    EXPECT_EQ(tag("T"), std::string("T\0", 2));
    EXPECT_EQ(tag(""), std::string(2, '\0'));
    InitReader in("");
    char byte = '#';
    EXPECT_FALSE(in.ReadBytes(&byte, 1));
    EXPECT_FALSE(in.AtEnd());
    EXPECT_EQ(byte, '#');
}

}  // namespace
