// Every decoder class, by the name of its map. This is the one place that knows them all.

#include "decoders/CRDUMMY01.h"
#include "decoders/CRICAND11.h"
#include "decoders/CRINTIK01.h"
#include "decoders/CRINTIK11.h"
#include "decoders/CRITRDE01.h"
#include "decoders/CRITRDE02.h"
#include "decoders/CRRNEWS01.h"
#include "decoders/CRRPASS01.h"
#include "decoders/CRSBRSM01.h"
#include "decoders/CRSCAND11.h"
#include "decoders/CRSDONE01.h"
#include "decoders/CRSETFNAV.h"
#include "decoders/CRSFLDN01.h"
#include "decoders/CRSITST01.h"
#include "decoders/CRSNOCH21.h"
#include "decoders/CRSODER01.h"
#include "decoders/CRSORDE21.h"
#include "decoders/CRSORDE22.h"
#include "decoders/CRSTICK11.h"
#include "decoders/CRSTRBK01.h"
#include "decoders/CRSTRDE01.h"
#include "framework/map_manager.h"

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
