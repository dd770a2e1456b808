// Every decoder class, by the name of its map. This is the one place that knows them all.

#include "module/decoders/boards/CRITRDE02.h"
#include "module/decoders/boards/CRSITST01.h"
#include "module/decoders/boards/CRSODER01.h"
#include "module/decoders/boards/CRSTRBK01.h"
#include "module/decoders/charts/CRICAND11.h"
#include "module/decoders/charts/CRSCAND11.h"
#include "module/decoders/lists/CRINTIK01.h"
#include "module/decoders/lists/CRINTIK11.h"
#include "module/decoders/lists/CRSDONE01.h"
#include "module/decoders/lists/CRSTICK11.h"
#include "module/decoders/monitor/CRSFLDN01.h"
#include "module/decoders/orders/CRSNOCH21.h"
#include "module/decoders/orders/CRSORDE21.h"
#include "module/decoders/orders/CRSORDE22.h"
#include "module/decoders/panels/CRITRDE01.h"
#include "module/decoders/panels/CRSBRSM01.h"
#include "module/decoders/panels/CRSETFNAV.h"
#include "module/decoders/panels/CRSTRDE01.h"
#include "module/decoders/passing/CRDUMMY01.h"
#include "module/decoders/passing/CRRNEWS01.h"
#include "module/decoders/passing/CRRPASS01.h"
#include "module/framework/map_manager.h"

namespace {

template <class Decoder>
constexpr DecoderFactoryEntry EntryOf() {
    return {Decoder::kMapName, CreateDecoder<Decoder>};
}

}  // namespace

// In order of the maps' names.
extern constinit const DecoderFactoryEntry g_DecoderFactories[] = {
    EntryOf<CRDUMMY01>(), EntryOf<CRICAND11>(), EntryOf<CRINTIK01>(), EntryOf<CRINTIK11>(),
    EntryOf<CRITRDE01>(), EntryOf<CRITRDE02>(), EntryOf<CRRNEWS01>(), EntryOf<CRRPASS01>(),
    EntryOf<CRSBRSM01>(), EntryOf<CRSCAND11>(), EntryOf<CRSDONE01>(), EntryOf<CRSETFNAV>(),
    EntryOf<CRSFLDN01>(), EntryOf<CRSITST01>(), EntryOf<CRSNOCH21>(), EntryOf<CRSODER01>(),
    EntryOf<CRSORDE21>(), EntryOf<CRSORDE22>(), EntryOf<CRSTICK11>(), EntryOf<CRSTRBK01>(),
    EntryOf<CRSTRDE01>(), {nullptr, nullptr},
};
