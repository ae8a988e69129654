#pragma once

#include <cstdint>

// The host's types of art that the plug-in looks for, for AIMatchingArtSpec and AIArtSpec.
constexpr int16_t kPlacedArt = 7;      // a linked file
constexpr int16_t kTextFrameArt = 12;  // a text frame
