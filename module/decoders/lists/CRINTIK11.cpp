#include "module/decoders/lists/CRINTIK11.h"

#include <utility>

#include "module/framework/init_reader.h"
#include "module/framework/local_date.h"
#include "module/framework/rows_buffer.h"
#include "module/wire/codecs.h"

CRINTIK11::CRINTIK11(HWND hWnd) : CRTMPacketDecoder(hWnd, Takes<&CRINTIK11::OnIndexPacket>) {
    FillBlank(m_Front);
    FillBlank(m_Date);
}

int CRINTIK11::OnInit(InitReader& in) {
    m_Front.Tag = in.Tag();
    IndexChartInit init;
    IndexChartRow newest[1];
    if (!in.Read(init) || !in.ReadRepeatBlock(newest)) {
        return 0;
    }
    const IndexKey former = m_Key.Take(init.Key);
    m_Front.Head = init.Head;
    if (init.Period < 'A' || init.Period > 'H') {
        return 0;  // the key is taken already, the subscription has not moved
    }
    // Without a row, or without a date in it, the day is the machine's own.
    if (IsBlank(newest[0].Date)) {
        PutSpacedLocalDate(m_Date);
    } else {
        Put(m_Date, newest[0].Date);
    }
    m_Key.MoveFrom(former);
    return 1;
}

int CRINTIK11::OnIndexPacket(const IndexPacket& index) {
    if (!(index.Key == m_Key.Get())) {
        return 0;
    }
    m_Front.Head.RowAction = kAppendRow;
    Put<4>(m_Front.Head.Price, index.Index / kIndexScale);
    Put(m_Front.Head.Quantity, index.Volume);  // the update's, where stocks show the day's total
    ViewBuffer buffer = RowsBuffer<IndexChartRow>(m_Front, 1);
    if (!buffer) {
        return 0;
    }
    IndexChartRow& row = buffer.As<IndexChartDisplay>().Row;
    Put(row.Date, m_Date);
    Put(row.Time, index.Time);
    Put<4>(row.Index, index.Index / kIndexScale);
    Put(row.Volume, index.Volume);
    PostToView(std::move(buffer));
    return 0;
}

void CRINTIK11::OnRelease() {
    m_Key.GiveUp();
}
