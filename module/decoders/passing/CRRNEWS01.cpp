#include "module/decoders/passing/CRRNEWS01.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "module/framework/init_reader.h"
#include "module/framework/rows_buffer.h"
#include "module/wire/codecs.h"

namespace {

struct SourceLabel {
    std::string_view Category;  // its first character, or both
    std::string_view Text;
};

// The first that fits counts; no category has more than one fitting line.
constexpr SourceLabel kLabels[] = {
    {"1", "IDX"},     {"20", "Orvel Trust"}, {"21", "Stock"},   {"22", "Breaking"}, {"23", "Rumors"},
    {"24", "Market"}, {"25", "Industry"},    {"26", "Economy"}, {"9", "Research"},
};

std::string_view LabelOf(std::string_view category) {
    for (const SourceLabel& label : kLabels) {
        if (category.substr(0, label.Category.size()) == label.Category) {
            return label.Text;
        }
    }
    return "";
}

// A label that is longer than its field runs on into the title, which then covers it as far as it reaches.
void PutLabel(NewsRow& row, std::string_view label) {
    const std::size_t inField = std::min(label.size(), sizeof(row.Label));
    std::memcpy(row.Label, label.data(), inField);
    label.remove_prefix(inField);
    std::memcpy(row.Title, label.data(), label.size());
}

void PutTitle(NewsRow& row, std::string_view title) {
    title = title.substr(0, title.find('\0'));
    title.remove_prefix(std::min(title.find_first_not_of(' '), title.size()));
    std::memcpy(row.Title, title.data(), title.size());
}

}  // namespace

CRRNEWS01::CRRNEWS01(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRRNEWS01::OnNewsPacket>) {}

int CRRNEWS01::OnInit(InitReader& in) {
    m_Headlines.Clear();
    m_Tag = in.Tag();
    NewsInit init;
    FillBlank(init);
    const bool isWhole = in.Read(init);
    m_chSelector = init.Selector;
    return isWhole ? 1 : 0;
}

bool CRRNEWS01::Selects(const NewsPacket& news) const {
    switch (m_chSelector) {
        case '0':
            return true;
        case '1':
        case '2':
        case '9':
            return news.Category[0] == m_chSelector;
        default:
            return false;
    }
}

int CRRNEWS01::OnNewsPacket(const NewsPacket& news) {
    Headline* headline = Selects(news) ? m_Headlines.Append() : nullptr;
    if (headline == nullptr) {
        return 0;
    }
    FillBlank(*headline);
    headline->NewsKind = news.NewsKind;
    NewsRow& row = headline->Row;
    Put(row.Date, news.Date);
    Put(row.Time, news.Time);
    PutLabel(row, LabelOf({news.Category, sizeof(news.Category)}));
    PutTitle(row, {news.Title, sizeof(news.Title)});
    Put(row.NewsRef1, news.NewsRef1);
    Put(row.NewsRef2, news.NewsRef2);
    Put(row.Category, news.Category);
    row.HasCode = IsBlank(news.Code) ? ' ' : '1';
    Put(row.Code, news.Code);
    return 1;
}

void CRRNEWS01::OnEndUnpack() {
    if (m_Headlines.Empty()) {
        return;
    }
    const Headline& headline = *m_Headlines.First();
    ViewBuffer buffer = RowsBuffer<NewsRow>(NewsFront{m_Tag, headline.NewsKind, {}}, 1);
    if (!buffer) {
        KeepChange();
        return;
    }
    buffer.As<NewsDisplay>().Row = headline.Row;
    m_Headlines.DropFirst();
    if (!m_Headlines.Empty()) {
        KeepChange();
    }
    PostToView(std::move(buffer));
}

void CRRNEWS01::OnRelease() {
    m_Headlines.Clear();
}
