// Subscription holder: keeps codes subscribed to for as long as its map lives.
//
// Takes no packets and sends nothing.
#ifndef TICKMUX_MODULE_DECODERS_PASSING_CRDUMMY01_H
#define TICKMUX_MODULE_DECODERS_PASSING_CRDUMMY01_H

#include "module/framework/code_requests.h"
#include "module/framework/packet_decoder.h"
#include "module/layouts/RDUMMY01.h"

class CRDUMMY01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RDUMMY01_R";

    explicit CRDUMMY01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnRelease() override;

    CodeRequests m_Requests;
};

#endif
