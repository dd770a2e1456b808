#include "bench/plain/factories.h"

#include <cstring>

namespace plain {

namespace {

struct Factory {
    const char* MapName;
    Decoder* (*Create)(HWND window);
};

const Factory kFactories[] = {
    {"RICAND11_R", NewCRICAND11}, {"RSCAND11_R", NewCRSCAND11}, {"RSNOCH21_R", NewCRSNOCH21},
    {"RSORDE21_R", NewCRSORDE21}, {"RSORDE22_R", NewCRSORDE22}, {"RSTICK11_R", NewCRSTICK11},
};

}  // namespace

Decoder* CreateDecoder(HWND window, const char* mapName) {
    for (const Factory& factory : kFactories) {
        if (strcmp(factory.MapName, mapName) == 0) {
            return factory.Create(window);
        }
    }
    return nullptr;
}

}  // namespace plain
