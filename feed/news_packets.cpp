#include "feed/news_packets.h"

#include "terminal/code_page.h"
#include "terminal/text.h"

namespace tools {

namespace {

template <class Packet>
WholePacket<Packet> MakeNotice(const char* code, int64_t number) {
    WholePacket<Packet> whole;
    FillBlank(whole.Payload);
    PutLeft(whole.Payload.Code, code);
    PutLeft(whole.Payload.Reserved1, "notice " + std::to_string(number) + " of the session");
    return whole;
}

}  // namespace

WholePacket<NewsPacket> MakeNews(const Headline& headline, Timestamp local) {
    constexpr char kOfAll = '1';
    constexpr char kOfStock = '2';
    constexpr std::size_t kLongest =
        sizeof(NewsPacket::Title) - NewsPacket::kRelatedCountWidth - sizeof('\0');
    WholePacket<NewsPacket> whole;
    NewsPacket& news = whole.Payload;
    FillBlank(news);
    news.NewsKind = headline.Of == nullptr ? kOfAll : kOfStock;
    PutLeft(news.Date, DateText(local));
    PutLeft(news.Time, TimeText(local));
    PutLeft(news.NewsRef2, std::string("DESK") + headline.Category);
    PutLeft(news.Category, headline.Category);
    PutDigits(news.NewsRef1, headline.Number);
    PutLeft(news.Code, headline.Of == nullptr ? "" : headline.Of->Code);
    // The title ends at a zero byte, and the digits at the field's end tell that nothing follows the packet.
    std::string title = CodePageText(headline.Title, kLongest);
    title.resize(sizeof(news.Title) - NewsPacket::kRelatedCountWidth);
    PutLeft(news.Title, title + "00");
    return whole;
}

WholePacket<MarketPacket> MakeMarketNotice(int64_t number) {
    return MakeNotice<MarketPacket>("BOARD", number);
}

WholePacket<SpecialPacket> MakeSpecialNotice(int64_t number) {
    return MakeNotice<SpecialPacket>("SESSION", number);
}

}  // namespace tools
