// News: headlines of the categories that the screen selects, with a label of their source.
//
// Takes T packets, which come without a request; sends one headline at each batch end for as long as some
// wait.
#ifndef TICKMUX_MODULE_DECODERS_PASSING_CRRNEWS01_H
#define TICKMUX_MODULE_DECODERS_PASSING_CRRNEWS01_H

#include "module/containers/plain_queue.h"
#include "module/framework/packet_decoder.h"
#include "module/layouts/RRNEWS01.h"

class CRRNEWS01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RRNEWS01_R";

    explicit CRRNEWS01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    struct Headline {
        char NewsKind;
        NewsRow Row;
    };

    int OnNewsPacket(const NewsPacket& news);

    bool Selects(const NewsPacket& news) const;

    RequestTag m_Tag{};
    char m_chSelector = ' ';
    PlainQueue<Headline> m_Headlines;
};

#endif
