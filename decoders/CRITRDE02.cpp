#include "decoders/CRITRDE02.h"

#include <cstring>
#include <new>
#include <utility>

#include "framework/change_rate.h"
#include "framework/codecs.h"
#include "framework/init_reader.h"
#include "framework/wrap.h"

namespace {

int32_t NumberOf(const IndexKey& key) {
    int32_t number = 0;
    static_assert(sizeof(number) == sizeof(key));
    std::memcpy(&number, &key, sizeof(number));
    return number;
}

void PutFigures(IndexBoardRow& row, const IndexPacket& index) {
    const int direction = SignToColor(nullptr, index.Sign);
    // The packet alone tells the base.
    const double base = BaseOf(index.Index, direction, index.Change) / kIndexScale;
    const double change = index.Change / kIndexScale;
    PutColor(row.IndexColor, direction);
    Put<4>(row.Index, index.Index / kIndexScale);
    row.Sign = index.Sign;
    PutColor(row.ChangeColor, direction);
    Put<4>(row.Change, change);
    PutColor(row.RateColor, direction);
    Put<2>(row.Rate, BiasedRate(change, base, direction));
    Put(row.Count1, index.Count1);
    Put(row.Count2, index.Count2);
    Put(row.Count3, index.Count3);
    Put(row.Count4, index.Count4);
    Put(row.Count5, index.Count5);
    Put(row.TotalVolume, index.TotalVolume);
    Put(row.TotalValue, index.TotalValue);
    Put(row.Time, index.Time);
}

}  // namespace

CRITRDE02::CRITRDE02(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRITRDE02::OnIndexPacket>) {}

CRITRDE02::~CRITRDE02() {
    GiveUp();
}

int CRITRDE02::Init(const char* buffer) {
    CRTMPacketDecoder::Init(buffer);
    InitReader in(buffer);
    m_Tag = in.Tag();
    m_ByKey.Clear();  // until this has succeeded no packet finds a row
    m_nDirty = 0;
    RepeatHead head;
    if (!in.Read(head)) {
        return 0;
    }
    constexpr auto kRowSize = static_cast<int>(sizeof(IndexBoardRow));
    const int rows = ToLong(head.Count);
    if (rows < 1 || ToLong(head.Size) != kRowSize || in.Remain() != rows * kRowSize) {
        return 0;
    }
    Board next;
    next.Entries.reset(new (std::nothrow) Entry[static_cast<std::size_t>(rows)]);
    if (next.Entries == nullptr) {
        return 0;  // the former rows still name what is subscribed to
    }
    next.nRows = rows;
    for (Entry& entry : next) {
        in.Read(entry.Row);
        entry.Number = NumberOf(entry.Row.Key);
        entry.Dirty = false;
        m_ByKey.PutLast(&entry);
    }
    const Board former = std::exchange(m_Board, std::move(next));
    // The communication manager may call back and end this board, or bring another.
    const unsigned generation = ++m_nGeneration;
    for (int i = 0; m_nGeneration == generation && i < rows; ++i) {
        Request::Add(m_Board.Entries[static_cast<std::size_t>(i)].Row.Key);
    }
    for (const Entry& entry : former) {
        Request::Delete(entry.Row.Key);
    }
    return 1;
}

int CRITRDE02::OnIndexPacket(const IndexPacket& index) {
    Entry* entry = m_ByKey.Find(NumberOf(index.Key));
    if (entry == nullptr) {
        return 0;
    }
    PutFigures(entry->Row, index);
    m_nDirty += entry->Dirty ? 0 : 1;
    entry->Dirty = true;
    return 1;
}

void CRITRDE02::EndUnpack() {
    if (m_bChanged == 0 || m_bStopped != 0) {
        return;
    }
    if (m_nDirty == 0) {
        m_bChanged = 0;
        return;
    }
    ViewBuffer buffer =
        ViewBuffer::Blank(sizeof(PlainRows) + static_cast<std::size_t>(m_nDirty) * sizeof(IndexBoardRow));
    if (!buffer) {
        return;  // the next batch end tries again
    }
    auto& front = buffer.As<PlainRows>();
    front.Tag = m_Tag;
    Put(front.Repeat.Count, m_nDirty);
    Put(front.Repeat.Size, static_cast<int32_t>(sizeof(IndexBoardRow)));
    auto* place = reinterpret_cast<IndexBoardRow*>(buffer.Bytes() + sizeof(PlainRows));
    for (Entry& entry : m_Board) {
        if (std::exchange(entry.Dirty, false)) {
            *place++ = entry.Row;
        }
    }
    m_nDirty = 0;
    m_bChanged = 0;
    PostToView(std::move(buffer));
}

void CRITRDE02::Release() {
    CRTMPacketDecoder::Release();
    GiveUp();
}

void CRITRDE02::GiveUp() {
    m_ByKey.Clear();
    m_nDirty = 0;
    ++m_nGeneration;
    const Board former = std::exchange(m_Board, {});
    for (const Entry& entry : former) {
        Request::Delete(entry.Row.Key);
    }
}
