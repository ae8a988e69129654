#pragma once

#include <string>
#include <vector>

#include "plugin-core/services/Services.h"

namespace vexcor {

// A document and the fonts that it needs: those of its text, those that it lists and those in the
// files that it places, each once.
struct NeededFonts {
    std::string path;  // absolute
    std::vector<std::string> names;
};

// Reads a document and the documents that it places. `file` is as the user gave it. Throws Failure
// if the document itself can't be read; placed documents that can't be read are reported on
// standard error.
NeededFonts ReadNeededFonts(plugincore::Services& services, const std::string& file);

// What ActivateNeededFonts did.
struct NeededFontsResult {
    std::vector<std::string> activated;  // weren't active before
    std::vector<std::string> missing;    // are neither active nor in the library
};

// Activates the fonts that aren't active, whatever the setting for documents of the host is, and
// makes the document hold them for `activation`.
//
// activation   that of the services, or one of another holder
// Throws Failure if fontconfig doesn't see what was activated.
NeededFontsResult ActivateNeededFonts(plugincore::Services& services,
                                      plugincore::Activation& activation,
                                      const NeededFonts& needed);

}  // namespace vexcor
