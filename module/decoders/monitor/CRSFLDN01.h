// Trade monitor: a running ticker of the trades that the user watches and filters.
//
// Takes A packets if it watches a list of stocks, R packets if it watches the whole market; the rows of a
// batch leave together. What it watches and filters by comes from the user's files, which each Init reads
// anew; the interest groups are those of the time when the screen was opened.
#ifndef TICKMUX_MODULE_DECODERS_MONITOR_CRSFLDN01_H
#define TICKMUX_MODULE_DECODERS_MONITOR_CRSFLDN01_H

#include "host/services/services.h"
#include "module/decoders/monitor/BrokerMarks.h"
#include "module/decoders/monitor/MonitorFeed.h"
#include "module/decoders/monitor/TradeFilters.h"
#include "module/decoders/monitor/WatchSet.h"
#include "module/framework/packet_decoder.h"
#include "module/framework/settings_file.h"
#include "module/framework/waiting_rows.h"
#include "module/layouts/RSFLDN01.h"

class CRSFLDN01 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RSFLDN01_R";

    explicit CRSFLDN01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnInit(InitReader& in) override;
    void OnEndUnpack() override;
    void OnRelease() override;

    template <class Packet>
    int OnTrade(const Packet& trade);
    template <class Packet>
    int ShowTrade(const Packet& trade);

    bool BuildWatchSet(WatchSet& watched) const;
    void PutBrokerColor(char (&color)[2], const char (&broker)[4]) const;

    MonitorFeed m_Feed;
    WatchSet m_WatchSet;
    CodeRequests m_Requests;
    TradeFilters m_Filters;
    PlainRows m_Front{};
    WaitingRows<MonitorRow> m_Rows;
    BrokerMarks m_Brokers;
    SettingsFile m_Settings;
    CInterestTable m_InterestTable;
};

#endif
