// Index ticks for a chart in their plain form.
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "framework/subscription_record.h"
#include "layouts/RINTIK11.h"

namespace plain {

class CRINTIK11 : public Decoder {
public:
    explicit CRINTIK11(HWND window) : Decoder(window) {
        memset(&m_InitBlock, ' ', sizeof(m_InitBlock));
        SetSlot(IndexPacket::kType, sizeof(IndexPacket), &CRINTIK11::OnIndexPacket);
    }

    ~CRINTIK11() override { DelTrStcd(m_InitBlock.Key.IndexCode, 4, kIndexClass, kWantIndex); }

    int Init(const char* buffer) override {
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        IndexChartInit init;
        RepeatHead head;
        IndexChartRow row;
        if (!ReadBytes(&init, sizeof(init)) || !ReadRepeatBlock(&head, &row, sizeof(row), 1)) {
            return 0;
        }
        const IndexKey oldKey = m_InitBlock.Key;
        m_InitBlock = init;
        if (init.Period < 'A' || init.Period > 'H') {
            return 0;
        }
        if (memcmp(row.Date, "        ", sizeof(row.Date)) != 0) {
            memcpy(m_Date, row.Date, sizeof(m_Date));
        } else {
            SYSTEMTIME now;
            GetLocalTime(&now);
            LongToAscii(now.wYear, m_Date, 4);
            LongToAscii(now.wMonth, m_Date + 4, 2);
            LongToAscii(now.wDay, m_Date + 6, 2);
        }
        AddTrStcd(m_InitBlock.Key.IndexCode, 4, kIndexClass, kWantIndex);
        DelTrStcd(oldKey.IndexCode, 4, kIndexClass, kWantIndex);
        return 1;
    }

    void Release() override {
        Decoder::Release();
        DelTrStcd(m_InitBlock.Key.IndexCode, 4, kIndexClass, kWantIndex);
        memset(&m_InitBlock, ' ', sizeof(m_InitBlock));
    }

private:
    int OnIndexPacket(const char* payload) {
        const auto& index = *reinterpret_cast<const IndexPacket*>(payload);
        if (memcmp(&index.Key, &m_InitBlock.Key, sizeof(index.Key)) != 0) {
            return 0;
        }
        DisplayHead& head = m_InitBlock.Head;
        head.RowAction = kAppendRow;
        DoubleToAscii(index.Index / 10000.0, head.Price, sizeof(head.Price), 4);
        LongToAscii(index.Volume, head.Quantity, sizeof(head.Quantity));
        char* buffer = NewRowsBuffer(m_Tag, offsetof(HeadedRows, Repeat), 1, sizeof(IndexChartRow));
        auto* display = reinterpret_cast<IndexChartDisplay*>(buffer);
        display->Front.Head = head;
        memcpy(display->Row.Date, m_Date, sizeof(m_Date));
        memcpy(display->Row.Time, index.Time, sizeof(index.Time));
        DoubleToAscii(index.Index / 10000.0, display->Row.Index, sizeof(display->Row.Index), 4);
        LongToAscii(index.Volume, display->Row.Volume, sizeof(display->Row.Volume));
        PostToView(buffer, sizeof(IndexChartDisplay) - sizeof(m_Tag));
        return 0;
    }

    IndexChartInit m_InitBlock;
    RequestTag m_Tag{};
    char m_Date[8];
};

Decoder* NewCRINTIK11(HWND window) {
    return new CRINTIK11(window);
}

}  // namespace plain
