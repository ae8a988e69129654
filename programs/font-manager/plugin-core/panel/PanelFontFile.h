#pragma once

#include <cstdint>
#include <string>

#include "plugin-core/services/Services.h"

namespace plugincore {

// A part of a font file for a browser.
struct PanelFontPiece {
    int status = 200;       // of HTTP; the other members are valid for 200 only
    std::string type;       // for Content-Type
    int64_t faceIndex = 0;  // as in FreeType
    uint64_t size = 0;      // bytes of the whole file
    std::string bytes;      // at most PanelLimits::kFontPiece, from the requested offset on
};

// The id by which the panel asks for a font file. It differs for a file that has changed.
std::string MakePanelFontId(int64_t file, int64_t faceIndex, int64_t modified);

// Reads a part of the font file with this id, which has to be in the font library now. Throws
// Failure of the database.
PanelFontPiece ReadPanelFontPiece(Services& services, const std::string& id, uint64_t offset);

}  // namespace plugincore
