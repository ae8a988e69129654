#pragma once

#include <string>

#include "validator/random/RandomNumbers.h"

namespace headless {

// The name of a font that documents use and that may be active. One is the host's default font.
std::string PickFont(RandomNumbers& random);

// A line `document PATH KEY=VALUE...` with a document of any kind: without frames or text, with
// many runs or frames, with missing fonts, placed files, fonts that are only listed.
std::string MakeDocumentLine(RandomNumbers& random, const std::string& path, bool isReadable);

}  // namespace headless
