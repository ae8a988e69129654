#pragma once

#include <cstdint>

// The host's types of art that the plug-in looks for.
constexpr int16_t kPlacedArt = 7;
constexpr int16_t kTextFrameArt = 12;
