#pragma once

#include "HostInterface.h"

// The host's search for art of one type in the current document. Main thread.

// Fetches all art of the type, one of ArtTypes.h. `matches` is an array of the host, to be given
// back by DisposeIllustratorHandle; it may be null. Returns the host's code, or kHostBadParameter
// if the host refused the suite.
AIErr GetMatchingArt(int16_t type, AIArtHandle**& matches, int32_t& count);

// Gives an array of GetMatchingArt back to the host and sets `handle` to null.
void DisposeIllustratorHandle(AIArtHandle**& handle);
