// Index board: many indices at once, a row each.
//
// Takes E packets of the listed indices; sends the rows that a batch has changed, in board order.
#ifndef TICKMUX_MODULE_DECODERS_BOARDS_CRITRDE02_H
#define TICKMUX_MODULE_DECODERS_BOARDS_CRITRDE02_H

#include "module/framework/code_requests.h"
#include "module/framework/packet_decoder.h"
#include "module/framework/row_board.h"
#include "module/layouts/RITRDE02.h"

class CRITRDE02 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RITRDE02_R";

    explicit CRITRDE02(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    struct Kind {
        using Row = IndexBoardRow;
        using Key = IndexKey;
        static const IndexKey& KeyOf(const Row& row) { return row.Key; }
    };

    int OnIndexPacket(const IndexPacket& index);

    CodeRequests m_Requests;
    RowBoard<Kind> m_Board;
    PlainRows m_Front{};
};

#endif
