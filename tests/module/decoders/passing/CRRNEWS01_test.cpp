#include "module/layouts/RRNEWS01.h"
#include "tests/support/inquiries.h"
#include "tests/support/terminal.h"

namespace {

std::string Inquiry(char selector) {
    return "N1" + std::string(20, '.') + selector + ".";
}

std::string Sent(const std::string& label, const std::string& title, const std::string& category,
                 const std::string& code = "") {
    return "N1K" + Block("1", "131") + "20261120090000" + Left(label, 8) + Left(title, 80) +
           Left("ref 1", 10) + Left("ref 2", 6) + category + (code.empty() ? " " : "1") + Left(code, 10);
}

struct NewsScreen : ScreenTest {
    NewsScreen() : ScreenTest("RRNEWS01_R") {}
    template <class Packet>
    void Expect(const Packet& packet, const std::string& sent) {
        EXPECT_TRUE((ShowsRows<NewsFront, NewsRow>(After(packet), sent)));
    }
};

TEST_F(NewsScreen, AHeadlineIsARowWithTheLabelOfItsCategory) {
    Open(Inquiry('0'));
    EXPECT_EQ(Told(), Events{});
    Expect(News("21", "   Three blanks").Code("ASII"), Sent("Stock", "Three blanks", "21", "ASII"));
    Expect(News("1x", " \tTab "), Sent("IDX", "\tTab", "1x"));
    Expect(News("20", "a"), Sent("Orvel Tr", "ast", "20"));
    Expect(News("20", ""), Sent("Orvel Tr", "ust", "20"));
    const std::string full = std::string(78, 'x') + "00";
    Expect(News("97", full), Sent("Research", full, "97"));
    const char* const labels[] = {"Breaking", "Rumors", "Market", "Industry", "Economy", ""};  // from 22 on
    for (std::size_t i = 0; i < std::size(labels); ++i) {
        const std::string category = std::to_string(22 + i);
        Expect(News(category).Related("07"), Sent(labels[i], "Title", category));
    }
}

TEST_F(NewsScreen, ABurstDrainsOneHeadlineABatchEnd) {
    Open(Inquiry('0'));
    for (const char* title : {"1", "2", "3"}) {
        Feed(News("21", title));
    }
    for (const char* title : {"1", "2", "3"}) {
        EndBatch();
        EXPECT_EQ(m_Screen->Next().substr(sizeof(NewsFront) + 22, 2), Left(title, 2));
        EXPECT_TRUE(m_Screen->Empty());
    }
    EXPECT_TRUE(Silent());
    Feed(News("21"), News("21"));
    m_Screen->Stop();
    EXPECT_EQ(Init(Inquiry('0')), 1);
    EXPECT_TRUE(Silent()) << "those that waited are gone";
}

}  // namespace
