// Interest board: the stocks of one interest group, a row each, with the user's alarms.
//
// Takes A and B packets of the listed stocks; sends the rows that a batch has changed, in board order. A
// row's first byte tells whether its alarm has gone off.
#ifndef TICKMUX_MODULE_DECODERS_BOARDS_CRSITST01_H
#define TICKMUX_MODULE_DECODERS_BOARDS_CRSITST01_H

#include <array>
#include <optional>

#include "module/decoders/boards/InterestAlarm.h"
#include "module/framework/code_requests.h"
#include "module/framework/packet_decoder.h"
#include "module/framework/row_board.h"
#include "module/layouts/RSITST01.h"

class CRSITST01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSITST01_R";

    explicit CRSITST01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    struct Kind {
        using Row = InterestRow;
        using Key = StockCode;
        static StockCode KeyOf(const Row& row);
    };

    int OnTradePacket(const TradePacket& trade);
    int OnBookPacket(const BookPacket& book);

    int Find(const StockKey& key) const;

    void LoadAlarms(const SettingsFile& file, const char (&group)[3]);
    void CheckAlarmsAtInit();
    char CheckAlarm(int place, const TradePacket& trade) const;
    char AlarmChar() const { return m_bAlarmSound != 0 ? kAlarmSounds : kAlarmSilent; }

    CodeRequests m_Requests;
    RowBoard<Kind> m_Board;
    PlainRows m_Front{};
    int32_t m_bAlarmSound = 0;  // the user wants to hear alarms
    // Only the first rows have one; those further down have none.
    std::array<std::optional<InterestAlarm>, 50> m_Alarms;
};

#endif
