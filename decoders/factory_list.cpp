// Every decoder class, by the name of its map. This is the one place that knows them all.

#include "decoders/CRSETFNAV.h"
#include "decoders/CRSTICK11.h"
#include "framework/map_manager.h"

extern constinit const DecoderFactoryEntry g_DecoderFactories[] = {
    {CRSETFNAV::kMapName, CreateDecoder<CRSETFNAV>},
    {CRSTICK11::kMapName, CreateDecoder<CRSTICK11>},
    {nullptr, nullptr},
};
