// Index ticks for a chart: every update of one index leaves at once, as one row behind a display head.
//
// Takes E packets of the index.
#ifndef TICKMUX_MODULE_DECODERS_LISTS_CRINTIK11_H
#define TICKMUX_MODULE_DECODERS_LISTS_CRINTIK11_H

#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/layouts/RINTIK11.h"

class CRINTIK11 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RINTIK11_R";

    explicit CRINTIK11(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnRelease() override;

    int OnIndexPacket(const IndexPacket& index);

    FollowedCode<IndexKey, kIndexClass, kWantIndex> m_Key{*this};
    HeadedRows m_Front;  // tag and display head of the next buffer
    char m_Date[8];      // in every row
};

#endif
