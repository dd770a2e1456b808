// Index tick list: every update of one index becomes a row with its change and rate.
//
// Takes E packets of the index; the rows of a batch leave together.
#ifndef TICKMUX_MODULE_DECODERS_LISTS_CRINTIK01_H
#define TICKMUX_MODULE_DECODERS_LISTS_CRINTIK01_H

#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/framework/waiting_rows.h"
#include "module/layouts/RINTIK01.h"

class CRINTIK01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RINTIK01_R";

    explicit CRINTIK01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    int OnIndexPacket(const IndexPacket& index);

    FollowedCode<IndexKey, kIndexClass, kWantIndex> m_Key{*this};
    PlainRows m_Front{};
    double m_dBaseValue = 0.0;  // of the rate, in index points; 0: none yet
    WaitingRows<IndexTickRow> m_Ticks;
};

#endif
