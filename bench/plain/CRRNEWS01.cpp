// News in its plain form.
#include <cstring>
#include <list>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "bench/plain/waiting_rows.h"
#include "layouts/RRNEWS01.h"

namespace plain {

static const char* LabelOf(const char* category) {
    if (category[0] == '1') {
        return "IDX";
    }
    if (category[0] == '9') {
        return "Research";
    }
    if (category[0] == '2') {
        switch (category[1]) {
            case '0':
                return "Orvel Trust";
            case '1':
                return "Stock";
            case '2':
                return "Breaking";
            case '3':
                return "Rumors";
            case '4':
                return "Market";
            case '5':
                return "Industry";
            case '6':
                return "Economy";
            default:
                break;
        }
    }
    return "";
}

class CRRNEWS01 : public Decoder {
public:
    explicit CRRNEWS01(HWND window) : Decoder(window) {
        memset(&m_InitBlock, ' ', sizeof(m_InitBlock));
        SetSlot(NewsPacket::kType, sizeof(NewsPacket), &CRRNEWS01::OnNewsPacket);
    }

    ~CRRNEWS01() override { ClearRows(); }

    int Init(const char* buffer) override {
        ClearRows();
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        memset(&m_InitBlock, ' ', sizeof(m_InitBlock));
        return ReadBytes(&m_InitBlock, sizeof(m_InitBlock)) ? 1 : 0;
    }

    void Release() override {
        Decoder::Release();
        ClearRows();
    }

    void EndUnpack() override {
        if (m_bChanged == 0 || m_bStopped != 0) {
            return;
        }
        const size_t waiting = m_Rows.size();
        if (waiting > 0) {
            char* buffer = NewRowsBuffer(m_Tag, offsetof(NewsFront, Repeat), 1, sizeof(NewsRow));
            auto* display = reinterpret_cast<NewsDisplay*>(buffer);
            display->Front.NewsKind = m_Kinds.front();
            display->Row = *m_Rows.front();
            m_Kinds.pop_front();
            delete m_Rows.front();
            m_Rows.pop_front();
            PostToView(buffer, static_cast<int>(sizeof(NewsDisplay) - sizeof(RequestTag)));
        }
        if (waiting <= 1) {
            m_bChanged = 0;
        }
    }

private:
    int OnNewsPacket(const char* payload) {
        const auto& news = *reinterpret_cast<const NewsPacket*>(payload);
        const char selector = m_InitBlock.Selector;
        if (strchr("0129", selector) == nullptr || (selector != '0' && news.Category[0] != selector)) {
            return 0;
        }
        auto* row = new NewsRow;
        memset(row, ' ', sizeof(*row));
        memcpy(row->Date, news.Date, sizeof(row->Date));
        memcpy(row->Time, news.Time, sizeof(row->Time));
        // The longest label runs into the title, which then covers it.
        const char* label = LabelOf(news.Category);
        memcpy(reinterpret_cast<char*>(row) + offsetof(NewsRow, Label), label, strlen(label));
        char title[sizeof(news.Title) + 1] = {};
        memcpy(title, news.Title, sizeof(news.Title));
        const char* text = title + strspn(title, " ");
        memcpy(row->Title, text, strlen(text));
        memcpy(row->NewsRef1, news.NewsRef1, sizeof(row->NewsRef1));
        memcpy(row->NewsRef2, news.NewsRef2, sizeof(row->NewsRef2));
        memcpy(row->Category, news.Category, sizeof(row->Category));
        if (memcmp(news.Code, "          ", sizeof(news.Code)) != 0) {
            row->HasCode = '1';
        }
        memcpy(row->Code, news.Code, sizeof(row->Code));
        m_Kinds.push_back(news.NewsKind);
        m_Rows.push_back(row);
        return 1;
    }

    void ClearRows() {
        m_Kinds.clear();
        for (NewsRow* row : m_Rows) {
            delete row;
        }
        m_Rows.clear();
    }

    NewsInit m_InitBlock;
    RequestTag m_Tag{};
    std::list<char> m_Kinds;
    std::list<NewsRow*> m_Rows;
};

Decoder* NewCRRNEWS01(HWND window) {
    return new CRRNEWS01(window);
}

}  // namespace plain
