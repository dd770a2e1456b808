// Every decoder class, by the name of its map. This is the one place that knows them all.

#include "decoders/CRICAND11.h"
#include "decoders/CRITRDE01.h"
#include "decoders/CRITRDE02.h"
#include "decoders/CRSCAND11.h"
#include "decoders/CRSETFNAV.h"
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
    {CRICAND11::kMapName, CreateDecoder<CRICAND11>}, {CRITRDE01::kMapName, CreateDecoder<CRITRDE01>},
    {CRITRDE02::kMapName, CreateDecoder<CRITRDE02>}, {CRSCAND11::kMapName, CreateDecoder<CRSCAND11>},
    {CRSETFNAV::kMapName, CreateDecoder<CRSETFNAV>}, {CRSITST01::kMapName, CreateDecoder<CRSITST01>},
    {CRSNOCH21::kMapName, CreateDecoder<CRSNOCH21>}, {CRSODER01::kMapName, CreateDecoder<CRSODER01>},
    {CRSORDE21::kMapName, CreateDecoder<CRSORDE21>}, {CRSORDE22::kMapName, CreateDecoder<CRSORDE22>},
    {CRSTICK11::kMapName, CreateDecoder<CRSTICK11>}, {CRSTRBK01::kMapName, CreateDecoder<CRSTRBK01>},
    {CRSTRDE01::kMapName, CreateDecoder<CRSTRDE01>}, {nullptr, nullptr},
};
