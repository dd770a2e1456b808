// Fund values: three values of one fund, each with a colour against a base value.
//
// Takes N packets of the fund; sends the whole screen image once per batch that changed it.
#ifndef TICKMUX_MODULE_DECODERS_PANELS_CRSETFNAV_H
#define TICKMUX_MODULE_DECODERS_PANELS_CRSETFNAV_H

#include "module/framework/packet_decoder.h"
#include "module/framework/subscription.h"
#include "module/layouts/RSETFNAV.h"

class CRSETFNAV : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSETFNAV_R";

    explicit CRSETFNAV(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnRelease() override;

    int OnNavPacket(const NavPacket& nav);

    template <std::size_t N>
    void PutValue(NavField& field, const char (&text)[N]) const;

    FollowedCode<StockKey, kFundClass, kWantFund> m_Key{*this};
    double m_dBaseValue = 0.0;
};

#endif
