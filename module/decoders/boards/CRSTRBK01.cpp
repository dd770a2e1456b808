#include "module/decoders/boards/CRSTRBK01.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "module/framework/init_reader.h"
#include "module/framework/rows_buffer.h"
#include "module/wire/codecs.h"
#include "module/wire/wrap.h"

namespace {

constexpr auto kRowSize = static_cast<int>(sizeof(PriceRow));

}  // namespace

CRSTRBK01::CRSTRBK01(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRSTRBK01::OnTradePacket>) {}

int CRSTRBK01::OnInit(InitReader& in) {
    ClearTable();
    m_Front.Tag = in.Tag();
    PriceTableInit init;
    if (!in.Read(init)) {
        return 0;
    }
    // Rows stand 62 bytes apart, whatever size the head tells; all must lie within the text.
    const int count = ToLong(init.Repeat.Count);
    const int size = std::clamp(ToLong(init.Repeat.Size), 0, kRowSize);
    if (count < 0 || (count > 0 && (count - 1) * kRowSize + size > in.Remain())) {
        return 0;
    }
    const StockKey former = m_Key.Take(init.Key);
    if (!TakeRows(in.Rest(), count, static_cast<std::size_t>(size))) {
        ClearTable();
        return 0;  // the key is taken already, the subscription has not moved
    }
    m_Key.MoveFrom(former);
    return 1;
}

bool CRSTRBK01::TakeRows(const char* rows, int count, std::size_t size) {
    for (int i = 0; i < count; ++i) {
        PriceRow row;
        FillBlank(row);
        std::memcpy(&row, rows + static_cast<std::ptrdiff_t>(i) * kRowSize, size);
        if (InsertRow(m_List.Size(), row, ToLong(row.Price)) == nullptr) {
            return false;
        }
    }
    return true;
}

CRSTRBK01::Entry* CRSTRBK01::InsertRow(std::size_t place, const PriceRow& row, int32_t price) {
    Entry* entry = m_List.Reserve(m_List.Size() + 1) ? m_Entries.Take() : nullptr;
    if (entry != nullptr) {
        *entry = {price, nullptr, nullptr, row};
        m_List.Insert(place, entry);
        m_ByPrice.PutLast(entry);
    }
    return entry;
}

int CRSTRBK01::OnTradePacket(const TradePacket& trade) {
    if (!(trade.Key == m_Key.Get())) {
        return 0;
    }
    Entry* entry = m_ByPrice.Find(trade.Price);
    if (entry == nullptr) {
        entry = InsertPrice(trade);
        if (entry == nullptr) {
            return 0;
        }
    }
    PriceRow& row = entry->Row;
    const int32_t volume = WrapAdd(ToLong(row.SumVolume), trade.Volume);
    const int64_t value =
        WrapMultiply(WrapMultiply(int64_t{trade.LotSize}, int64_t{trade.Price}), int64_t{volume});
    Put(row.Trades, WrapAdd(ToLong(row.Trades), 1));
    Put(row.SumVolume, volume);
    Put(row.SumValue, value / 1000);
    return 1;
}

// In front of the first row that is not above the price. The window hears of it before the figures stand.
CRSTRBK01::Entry* CRSTRBK01::InsertPrice(const TradePacket& trade) {
    std::size_t place = 0;
    while (place < m_List.Size() && m_List[place]->Number > trade.Price) {
        ++place;
    }
    PriceRow row;
    FillBlank(row);
    Put(row.Price, trade.Price);
    SignToColor(row.Color, trade.Sign);
    if (InsertRow(place, row, trade.Price) == nullptr) {
        return nullptr;
    }
    NotifyListChanged();
    // Looked up again, since the window may have called back and ended the table.
    return trade.Key == m_Key.Get() ? m_ByPrice.Find(trade.Price) : nullptr;
}

void CRSTRBK01::OnEndUnpack() {
    if (m_List.Empty()) {
        return;
    }
    ViewBuffer buffer = RowsBuffer<PriceRow>(m_Front, m_List.Size());
    if (!buffer) {
        KeepChange();
        return;
    }
    PriceRow* const place = RowsBehind<PlainRows, PriceRow>(buffer);
    for (std::size_t i = 0; i < m_List.Size(); ++i) {
        place[i] = m_List[i]->Row;
    }
    PostToView(std::move(buffer));
}

void CRSTRBK01::OnStop() {
    ClearTable();
}

void CRSTRBK01::OnRelease() {
    m_Key.GiveUp();
}

void CRSTRBK01::ClearTable() {
    m_ByPrice.Clear();
    m_List.Clear();
    m_Entries.Clear();
}
