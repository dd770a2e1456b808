// The table of an order list against messages made by hand, and against those of the module.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "terminal/code_page.h"
#include "terminal/screens/order_table.h"
#include "terminal/text.h"
#include "tests/programs/tool_runs.h"
#include "tests/support/orders.h"

namespace {

using tools::BlankTail;

// Operation, index and action, then rows "number status".
std::string Sent(const std::string& control, const Rows& rows = {}) {
    Rows made;
    for (const std::string& text : rows) {
        const std::size_t gap = text.find(' ');
        made.push_back(ExpectedRow(text.substr(0, gap)).Status(text.substr(gap + 1)));
    }
    return Message(control, made);
}

// An update of one row whose head tells this.
std::string WithHead(const std::string& count, const std::string& size) {
    return Sent("U  -13", {"1 Open"}).replace(sizeof(RequestTag), 8, Right(count, 4) + Right(size, 4));
}

class OrderTableTest : public testing::Test {
protected:
    // Takes a message and gives the table, "number status, ..." from the top, and the faults.
    std::string Take(const std::string& message) {
        Table.Take(message);
        std::vector<std::string> rows;
        for (const OrderRow& row : Table.Rows()) {
            rows.push_back(std::string(tools::Trim({row.OrderNo, sizeof(row.OrderNo)})) + " " +
                           std::string(tools::Trim({row.Status, sizeof(row.Status)})));
        }
        return tools::Joined(rows) + "|" + tools::Joined(Table.TakeFaults());
    }

    tools::OrderTable Table{2, BlankTail::Allowed};
};

TEST_F(OrderTableTest, FollowsMessages) {
    EXPECT_EQ(Take(Sent("U  -12", {"3 Open", "2 Open", "1 Open"})), "3 Open, 2 Open, 1 Open|");
    EXPECT_EQ(Take(Sent("U  -13", {"1 Partial"})), "3 Open, 2 Open, 1 Partial|");
    EXPECT_EQ(Take(Sent("U   13", {"3 Done", "2 Amended"})), "3 Done, 2 Amended, 1 Partial|");
    EXPECT_EQ(Take(Sent("D   13")), "3 Done, 1 Partial|");
    // The index counts the rows before the others change; the upper one of two is the one that changes.
    EXPECT_EQ(Take(Sent("U  -12", {"1 Open"})), "1 Open, 3 Done, 1 Partial|");
    EXPECT_EQ(Take(Sent("D   03", {"1 Reject", "3 Open"})), "3 Open, 1 Reject|");
    EXPECT_EQ(Take(Sent("U  -12", {"4 Open"}) + std::string(342, ' ')), "4 Open, 3 Open, 1 Reject|");
    const std::string cancelled = "7 \xC3\xEB\xBC\xD2\xC8\xAE\xC0\xCE";
    EXPECT_EQ(Take(Sent("U  -10", {cancelled, "9 Open", "8 Open"})), cancelled + ", 9 Open, 8 Open|");
    const std::string image = Table.Image();
    EXPECT_NE(image.find("  취소확인  7\n"), std::string::npos) << image;
    EXPECT_NE(image.find("  Open      9\n"), std::string::npos) << image;
    EXPECT_TRUE(image.ends_with("\n  1 row below\n")) << image;
    EXPECT_EQ(Take(Sent("U  -10")), "|");
    EXPECT_EQ(Table.Image(), "");
}

TEST_F(OrderTableTest, TellsContradictions) {
    Take(Sent("U  -12", {"2 Open", "1 Open"}));
    const std::pair<std::string, const char*> cases[] = {
        {Sent("U  -13", {"5 Done"}), "update of order \"5\", which the table does not have"},
        {Sent("U   23", {"1 Open"}), "update with index 2, but the table has 2 rows"},
        {Sent("U   03", {"1 Open"}), "update with index 0, which is order \"2\", but does not bring it"},
        {Sent("D   23"), "delete of row 2, but the table has 2 rows"},
        {Sent("D  -13"), "delete without an index"},
        {Sent("D   02"), R"(unknown action "2" of operation "D")"},
        {Sent("X  -13"), "unknown operation \"X\""},
        {Sent("U    3"), "index \"    \" is no number"},
        {WithHead("2", "170"), "repeat size \" 170\", but a row has 171 bytes"},
        {WithHead("3", "171"), "repeat count \"   3\", but there is room for the control record and 1 row"},
        {Sent("U  -13", {"1 Open"}) + std::string(170, ' ') + "x",
         "behind the last row the message is not blank"},
    };
    for (const auto& [bad, fault] : cases) {
        EXPECT_EQ(Take(bad), std::string("2 Open, 1 Open|") + fault);
    }
    EXPECT_EQ(Take(Sent("D   03", {"2 Done"})),
              "1 Open|update of order \"2\", which the table does not have");
    EXPECT_ANY_THROW(Table.Take(Sent("U  -13") + " "));

    tools::OrderTable strict(9, BlankTail::No);
    strict.Take(Sent("U  -12", {"4 Open"}) + std::string(171, ' '));
    EXPECT_EQ(tools::Joined(strict.TakeFaults()),
              "repeat count \"   2\", but there is room for the control record and 2 rows");
}

TEST(CodePage, KoreanAndBrokenBytes) {
    EXPECT_EQ(tools::ShownText("ab\\ \xC1\xA2\xBC\xF6 \xC1"), "ab\\\\ 접수 \\xc1");
    EXPECT_EQ(tools::ShownWidth("ab\\\\ 접수 \\xc1"), 5U + 4U + 5U);
    EXPECT_EQ(tools::ShownText(std::string("  \0\0z", 5)), "  ");
    EXPECT_EQ(tools::ShownText("\x81\x20\xFF\xFF\x1B"), "\\x81 \\xff\\xff\\x1b");
}

// A whole session through the three lists, over a pipe. A table of working orders can be contradicted: with
// status filter 4 a row that enters late comes at its top, while deletions count places by the age of the
// rows; with filter 1 an amendment whose parent never got a row is first told of as a change.
TEST(OrderScreens, FollowAGeneratedSession) {
    const ScratchFolder folder;
    const auto replay = [&folder](const std::string& options, const std::string& screens) {
        return RunTool("feedgen", "--packets 30000 --orders 50 --output - | " TOOL_DIR "/tickreplay 2>&1 " +
                                      options + " --drive-c " + folder.Path("") + " " +
                                      folder.Write("w", screens) + " -");
    };
    const Outcome outcome = replay("--strict --rows 100000",
                                   "RSNOCH21_R ACC001\nRSORDE21_R ACC001\nRSORDE22_R ACC001\n"
                                   "RSORDE22_R ACC001 StatusFilter=2\n"
                                   "RSORDE22_R ACC001 StatusFilter=3 BoardFilter=NG SideFilter=1\n");
    EXPECT_EQ(outcome.Status, 0) << outcome.Text.substr(0, 1000);
    for (const char* part : {"정정확인", "취확인전", "Partial", "Reject", "Withdrawn",
                             "RSNOCH21_R ACC001 was told of ", "RSORDE21_R ACC001 was told of "}) {
        EXPECT_NE(outcome.Text.find(part), std::string::npos) << part;
    }
    EXPECT_FALSE(ReadFile(folder.Path("logs/RSNOCH21.txt")).empty());

    const std::string filtered = "RSORDE22_R ACC001 StatusFilter=4\n";
    const Outcome warned = replay("", filtered);
    EXPECT_TRUE(warned.Status == 0 && warned.Text.starts_with("tickreplay: warning: 09:"));
    EXPECT_NE(warned.Text.find(" RSORDE22_R ACC001: update of order \"0"), std::string::npos);
    EXPECT_NE(warned.Text.find(" warnings of messages that contradict their table\n"), std::string::npos);
    const Outcome stopped = replay("--strict", filtered);
    EXPECT_TRUE(stopped.Status == 1 && stopped.Text.find("tickreplay: 09:") != std::string::npos);
}

}  // namespace
