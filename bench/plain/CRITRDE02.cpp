// Index board in its plain form.
#include <cstring>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "bench/plain/rates.h"
#include "framework/subscription_record.h"
#include "layouts/RITRDE02.h"

namespace plain {

class CRITRDE02 : public Decoder {
public:
    explicit CRITRDE02(HWND window) : Decoder(window) {
        SetSlot(IndexPacket::kType, sizeof(IndexPacket), &CRITRDE02::OnIndexPacket);
    }

    ~CRITRDE02() override { FreeBoard(); }

    int Init(const char* buffer) override {
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        m_nRows = 0;
        RepeatHead head;
        if (!ReadBytes(&head, sizeof(head))) {
            return 0;
        }
        const int count = AsciiToLong(head.Count, sizeof(head.Count));
        const int size = AsciiToLong(head.Size, sizeof(head.Size));
        if (count < 1 || size != static_cast<int>(sizeof(IndexBoardRow)) || m_nInitRemain != count * size) {
            return 0;
        }
        IndexBoardRow* oldRows = m_pRows;
        const int oldCount = m_nTableRows;
        m_pRows = new IndexBoardRow[static_cast<size_t>(count)];
        ReadBytes(m_pRows, m_nInitRemain);
        m_nTableRows = count;
        m_nRows = count;
        delete[] m_pDirty;
        m_pDirty = new char[static_cast<size_t>(count)];
        memset(m_pDirty, 0, static_cast<size_t>(count));
        for (int i = 0; i < m_nRows; ++i) {
            AddTrStcd(m_pRows[i].Key.IndexCode, sizeof(IndexKey), kIndexClass, kWantIndex);
        }
        for (int i = 0; i < oldCount; ++i) {
            DelTrStcd(oldRows[i].Key.IndexCode, sizeof(IndexKey), kIndexClass, kWantIndex);
        }
        delete[] oldRows;
        return 1;
    }

    void Release() override {
        Decoder::Release();
        FreeBoard();
    }

    void EndUnpack() override {
        if (m_bChanged == 0 || m_bStopped != 0) {
            return;
        }
        int count = 0;
        for (int i = 0; i < m_nRows; ++i) {
            count += m_pDirty[i] != 0 ? 1 : 0;
        }
        if (count > 0) {
            char* buffer = NewRowsBuffer(m_Tag, offsetof(PlainRows, Repeat), count, sizeof(IndexBoardRow));
            char* place = buffer + sizeof(PlainRows);
            for (int i = 0; i < m_nRows; ++i) {
                if (m_pDirty[i] != 0) {
                    memcpy(place, &m_pRows[i], sizeof(IndexBoardRow));
                    place += sizeof(IndexBoardRow);
                }
            }
            memset(m_pDirty, 0, static_cast<size_t>(m_nRows));
            PostToView(buffer, static_cast<int>(place - buffer) - static_cast<int>(sizeof(m_Tag)));
        }
        m_bChanged = 0;
    }

private:
    int OnIndexPacket(const char* payload) {
        const auto& index = *reinterpret_cast<const IndexPacket*>(payload);
        int place = 0;
        while (place < m_nRows && memcmp(&m_pRows[place].Key, &index.Key, sizeof(IndexKey)) != 0) {
            ++place;
        }
        if (place >= m_nRows) {
            return 0;
        }
        IndexBoardRow& row = m_pRows[place];
        const int direction = SignToColor(row.IndexColor, index.Sign);
        const double base = BaseOf(index.Index, direction, index.Change) / 10000.0;
        const double change = index.Change / 10000.0;
        DoubleToAscii(index.Index / 10000.0, row.Index, sizeof(row.Index), 4);
        row.Sign = index.Sign;
        SignToColor(row.ChangeColor, index.Sign);
        DoubleToAscii(change, row.Change, sizeof(row.Change), 4);
        SignToColor(row.RateColor, index.Sign);
        DoubleToAscii(ChangeRate(change, base, direction), row.Rate, sizeof(row.Rate), 2);
        LongToAscii(index.Count1, row.Count1, sizeof(row.Count1));
        LongToAscii(index.Count2, row.Count2, sizeof(row.Count2));
        LongToAscii(index.Count3, row.Count3, sizeof(row.Count3));
        LongToAscii(index.Count4, row.Count4, sizeof(row.Count4));
        LongToAscii(index.Count5, row.Count5, sizeof(row.Count5));
        LongToAscii(index.TotalVolume, row.TotalVolume, sizeof(row.TotalVolume));
        Int64ToAscii(index.TotalValue, row.TotalValue, sizeof(row.TotalValue));
        memcpy(row.Time, index.Time, sizeof(row.Time));
        m_pDirty[place] = 1;
        return 1;
    }

    void FreeBoard() {
        for (int i = 0; i < m_nTableRows; ++i) {
            DelTrStcd(m_pRows[i].Key.IndexCode, sizeof(IndexKey), kIndexClass, kWantIndex);
        }
        delete[] m_pRows;
        delete[] m_pDirty;
        m_pRows = nullptr;
        m_pDirty = nullptr;
        m_nTableRows = 0;
        m_nRows = 0;
    }

    IndexBoardRow* m_pRows = nullptr;
    int m_nTableRows = 0;
    int m_nRows = 0;  // 0 too after an Init text that was refused
    char* m_pDirty = nullptr;
    RequestTag m_Tag{};
};

Decoder* NewCRITRDE02(HWND window) {
    return new CRITRDE02(window);
}

}  // namespace plain
