#include "module/decoders/boards/CRITRDE02.h"

#include "module/framework/init_reader.h"
#include "module/wire/change_rate.h"
#include "module/wire/codecs.h"
#include "module/wire/wrap.h"

namespace {

void PutFigures(IndexBoardRow& row, const IndexPacket& index) {
    const int direction = SignToColor(nullptr, index.Sign);
    // The base is known from the packet alone.
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

int CRITRDE02::OnInit(InitReader& in) {
    m_Board.Close();
    m_Front.Tag = in.Tag();
    RepeatHead head;
    if (!in.Read(head)) {
        return 0;
    }
    constexpr auto kRowSize = static_cast<int>(sizeof(IndexBoardRow));
    const int rows = ToLong(head.Count);
    if (rows < 1 || ToLong(head.Size) != kRowSize || in.Remain() != rows * kRowSize) {
        return 0;
    }
    CodeRequests::List requests;
    if (!requests.Reserve(static_cast<std::size_t>(rows)) || !m_Board.Take(in.RestAs<IndexBoardRow>())) {
        return 0;
    }
    for (int place = 0; place < rows; ++place) {
        requests.Add(kIndexClass, m_Board.At(place).Key.IndexCode, sizeof(IndexKey), kWantIndex);
    }
    m_Requests.MoveTo(std::move(requests));
    return 1;
}

int CRITRDE02::OnIndexPacket(const IndexPacket& index) {
    const int place = m_Board.Find(index.Key);
    if (place == RowBoard<Kind>::kNowhere) {
        return 0;
    }
    PutFigures(m_Board.At(place), index);
    m_Board.Touch(place);
    return 1;
}

void CRITRDE02::OnEndUnpack() {
    SendRows(m_Front, m_Board);
}

void CRITRDE02::OnRelease() {
    m_Board.Close();
    m_Requests.GiveUpAll();
}
