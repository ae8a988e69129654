#pragma once

#include <string>

#include "plugin-core/library/FontLibrary.h"

namespace plugincore {

constexpr const char* kUnreadableFile = "its file cannot be read";

// Says why the library cannot provide a font, in words for the user: "in no font library",
// kUnreadableFile or "not in the selected library PATH". Returns "" if it can.
//
// file   where the library has the font, or ""
std::string GetReasonUnavailable(FontLibrary& library, const std::string& name,
                                 const std::string& file);

}  // namespace plugincore
