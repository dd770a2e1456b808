// Index panel: current value, day figures and counters of one index.
//
// Takes E packets of the index; sends the range of fields that the screen asked for.
#ifndef TICKMUX_MODULE_DECODERS_PANELS_CRITRDE01_H
#define TICKMUX_MODULE_DECODERS_PANELS_CRITRDE01_H

#include "module/decoders/panels/FieldPanel.h"
#include "module/layouts/RITRDE01.h"

struct IndexPanel {
    static constexpr const auto& kTable = kIndexPanel;
    using Init = IndexPanelInit;
    using Key = IndexKey;
    static constexpr char kClass = kIndexClass;
    static constexpr uint32_t kFlags = kWantIndex;
};

class CRITRDE01 : public PanelDecoder<IndexPanel> {
public:
    static constexpr char kMapName[] = "RITRDE01_R";

    explicit CRITRDE01(HWND hWnd);
    const char* GetMapName() const override { return kMapName; }

private:
    int OnIndexPacket(const IndexPacket& index);
    void TakeFields() override;

    template <int Number>
    void PutAgainstBase(double value);

    double m_dBaseValue = 0.0;  // index points; 0.0: none yet
};

#endif
