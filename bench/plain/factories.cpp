#include "bench/plain/factories.h"

#include <cstring>

namespace plain {

namespace {

struct Factory {
    const char* MapName;
    Decoder* (*Create)(HWND window);
};

const Factory kFactories[] = {
    {"RDUMMY01_R", NewCRDUMMY01}, {"RICAND11_R", NewCRICAND11}, {"RINTIK01_R", NewCRINTIK01},
    {"RINTIK11_R", NewCRINTIK11}, {"RITRDE01_R", NewCRITRDE01}, {"RITRDE02_R", NewCRITRDE02},
    {"RRNEWS01_R", NewCRRNEWS01}, {"RRPASS01_R", NewCRRPASS01}, {"RSBRSM01_R", NewCRSBRSM01},
    {"RSCAND11_R", NewCRSCAND11}, {"RSDONE01_R", NewCRSDONE01}, {"RSETFNAV_R", NewCRSETFNAV},
    {"RSFLDN01_R", NewCRSFLDN01}, {"RSITST01_R", NewCRSITST01}, {"RSNOCH21_R", NewCRSNOCH21},
    {"RSODER01_R", NewCRSODER01}, {"RSORDE21_R", NewCRSORDE21}, {"RSORDE22_R", NewCRSORDE22},
    {"RSTICK11_R", NewCRSTICK11}, {"RSTRBK01_R", NewCRSTRBK01}, {"RSTRDE01_R", NewCRSTRDE01},
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
