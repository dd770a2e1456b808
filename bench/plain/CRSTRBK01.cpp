// Volume by price in its plain form.
#include <algorithm>
#include <cstring>
#include <list>

#include "bench/plain/codecs.h"
#include "bench/plain/factories.h"
#include "bench/plain/rates.h"
#include "framework/subscription_record.h"
#include "layouts/RSTRBK01.h"

namespace plain {

class CRSTRBK01 : public Decoder {
public:
    explicit CRSTRBK01(HWND window) : Decoder(window) {
        memset(m_Key, ' ', sizeof(m_Key));
        SetSlot(TradePacket::kType, sizeof(TradePacket), &CRSTRBK01::OnTradePacket);
    }

    ~CRSTRBK01() override {
        DelTrStcd(m_Key, sizeof(m_Key), kStockClass, kWantTrades);
        FreeRows();
    }

    int Init(const char* buffer) override {
        FreeRows();
        m_Tag = TagOf(buffer);
        Decoder::Init(buffer);
        PriceTableInit init;
        if (!ReadBytes(&init, sizeof(init))) {
            return 0;
        }
        const int step = sizeof(PriceRow);
        const int count = AsciiToLong(init.Repeat.Count, sizeof(init.Repeat.Count));
        const int size = std::clamp(AsciiToLong(init.Repeat.Size, sizeof(init.Repeat.Size)), 0, step);
        if (count < 0 || (count > 0 && (count - 1) * step + size > m_nInitRemain)) {
            return 0;
        }
        char oldKey[sizeof(m_Key)];
        memcpy(oldKey, m_Key, sizeof(m_Key));
        memcpy(m_Key, &init.Key, sizeof(m_Key));
        for (int i = 0; i < count; ++i) {
            auto* row = new PriceRow;
            memset(row, ' ', sizeof(*row));
            memcpy(row, m_pInit + static_cast<ptrdiff_t>(i) * step, static_cast<size_t>(size));
            m_Rows.push_back({AsciiToLong(row->Price, sizeof(row->Price)), row});
        }
        AddTrStcd(m_Key, sizeof(m_Key), kStockClass, kWantTrades);
        DelTrStcd(oldKey, sizeof(oldKey), kStockClass, kWantTrades);
        return 1;
    }

    void Stop() override {
        Decoder::Stop();
        FreeRows();
    }

    void Release() override {
        Decoder::Release();
        DelTrStcd(m_Key, sizeof(m_Key), kStockClass, kWantTrades);
        memset(m_Key, ' ', sizeof(m_Key));
    }

    void EndUnpack() override {
        if (m_bChanged == 0 || m_bStopped != 0) {
            return;
        }
        if (!m_Rows.empty()) {
            const int count = static_cast<int>(m_Rows.size());
            char* buffer = NewRowsBuffer(m_Tag, offsetof(PlainRows, Repeat), count, sizeof(PriceRow));
            char* place = buffer + sizeof(PlainRows);
            for (const Node& node : m_Rows) {
                memcpy(place, node.pRow, sizeof(PriceRow));
                place += sizeof(PriceRow);
            }
            PostToView(buffer, static_cast<int>(place - buffer) - static_cast<int>(sizeof(m_Tag)));
        }
        m_bChanged = 0;
    }

private:
    struct Node {
        int64_t nPrice;
        PriceRow* pRow;
    };

    int OnTradePacket(const char* payload) {
        const auto& trade = *reinterpret_cast<const TradePacket*>(payload);
        if (memcmp(&trade.Key, m_Key, sizeof(m_Key)) != 0) {
            return 0;
        }
        PriceRow* row = FindRow(trade.Price);
        if (row == nullptr) {
            row = InsertRow(trade.Price, trade.Sign);
            SendListChanged();
        }
        const int32_t trades = AsciiToLong(row->Trades, sizeof(row->Trades));
        const int32_t volume = Sum32(AsciiToLong(row->SumVolume, sizeof(row->SumVolume)), trade.Volume);
        const int64_t worth = int64_t{trade.LotSize} * int64_t{trade.Price};
        LongToAscii(Sum32(trades, 1), row->Trades, sizeof(row->Trades));
        LongToAscii(volume, row->SumVolume, sizeof(row->SumVolume));
        Int64ToAscii(Product64(worth, volume) / 1000, row->SumValue, sizeof(row->SumValue));
        return 1;
    }

    PriceRow* FindRow(int32_t price) {
        for (const Node& node : m_Rows) {
            if (node.nPrice == price) {
                return node.pRow;
            }
        }
        return nullptr;
    }

    // In front of the first row that is not above the price.
    PriceRow* InsertRow(int32_t price, char sign) {
        auto* row = new PriceRow;
        memset(row, ' ', sizeof(*row));
        LongToAscii(price, row->Price, sizeof(row->Price));
        SignToColor(row->ColorTag, sign);
        auto place = m_Rows.begin();
        while (place != m_Rows.end() && place->nPrice > price) {
            ++place;
        }
        m_Rows.insert(place, {price, row});
        return row;
    }

    void FreeRows() {
        for (const Node& node : m_Rows) {
            delete node.pRow;
        }
        m_Rows.clear();
    }

    char m_Key[sizeof(StockKey)];
    RequestTag m_Tag{};
    std::list<Node> m_Rows;
};

Decoder* NewCRSTRBK01(HWND window) {
    return new CRSTRBK01(window);
}

}  // namespace plain
