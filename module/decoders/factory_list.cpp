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

// clang-format off: one line a map
extern constinit const DecoderFactoryEntry g_DecoderFactories[] = {
    {CRDUMMY01::kMapName, CreateDecoder<CRDUMMY01>}, {CRICAND11::kMapName, CreateDecoder<CRICAND11>},
    {CRINTIK01::kMapName, CreateDecoder<CRINTIK01>}, {CRINTIK11::kMapName, CreateDecoder<CRINTIK11>},
    {CRITRDE01::kMapName, CreateDecoder<CRITRDE01>}, {CRITRDE02::kMapName, CreateDecoder<CRITRDE02>},
    {CRRNEWS01::kMapName, CreateDecoder<CRRNEWS01>}, {CRRPASS01::kMapName, CreateDecoder<CRRPASS01>},
    {CRSBRSM01::kMapName, CreateDecoder<CRSBRSM01>}, {CRSCAND11::kMapName, CreateDecoder<CRSCAND11>},
    {CRSDONE01::kMapName, CreateDecoder<CRSDONE01>}, {CRSETFNAV::kMapName, CreateDecoder<CRSETFNAV>},
    {CRSFLDN01::kMapName, CreateDecoder<CRSFLDN01>}, {CRSITST01::kMapName, CreateDecoder<CRSITST01>},
    {CRSNOCH21::kMapName, CreateDecoder<CRSNOCH21>}, {CRSODER01::kMapName, CreateDecoder<CRSODER01>},
    {CRSORDE21::kMapName, CreateDecoder<CRSORDE21>}, {CRSORDE22::kMapName, CreateDecoder<CRSORDE22>},
    {CRSTICK11::kMapName, CreateDecoder<CRSTICK11>}, {CRSTRBK01::kMapName, CreateDecoder<CRSTRBK01>},
    {CRSTRDE01::kMapName, CreateDecoder<CRSTRDE01>}, {nullptr, nullptr},
};
