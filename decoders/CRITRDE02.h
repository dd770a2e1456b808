// Index board: many indices at once, a row each.
//
// Takes E packets of the listed indices; sends the rows that a batch has changed, in board order.
#ifndef TICKMUX_DECODERS_CRITRDE02_H
#define TICKMUX_DECODERS_CRITRDE02_H

#include <memory>

#include "framework/number_index.h"
#include "framework/packet_decoder.h"
#include "framework/subscription.h"
#include "layouts/RITRDE02.h"

class CRITRDE02 : public CRTMPacketDecoder {
public:
    static constexpr char kMapName[] = "RITRDE02_R";

    explicit CRITRDE02(HWND hWnd);
    ~CRITRDE02() override;

    int Init(const char* buffer) override;
    void Release() override;
    void EndUnpack() override;
    const char* GetMapName() const override { return kMapName; }

private:
    struct Entry {
        int32_t Number;  // the key's four bytes
        Entry* Previous;
        Entry* Next;
        bool Dirty;  // changed in this batch
        IndexBoardRow Row;
    };
    // The rows as the inquiry gave them, top first.
    struct Board {
        std::unique_ptr<Entry[]> Entries;
        int nRows = 0;

        Entry* begin() const { return Entries.get(); }
        Entry* end() const { return Entries.get() + nRows; }
    };
    using Request = Subscription<IndexKey, kIndexClass, kWantIndex>;

    int OnIndexPacket(const IndexPacket& index);

    void GiveUp();

    NumberIndex<Entry> m_ByKey;  // the rows that packets find; of equal keys the first
    Board m_Board;
    unsigned m_nGeneration = 0;  // of the board
    int m_nDirty = 0;
    RequestTag m_Tag{};
};

#endif
