#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "plugin-core/services/Services.h"

namespace plugincore {

// Lists the documents that running programs have open, as docs/PANEL.md says. Throws
// Failure of the database. [the thread of the services]
nlohmann::json ListPanelDocuments(Services& services);

// A text that differs if the documents, their fonts or their holds do.
std::string MakeMarkOfDocuments(Services& services);

}  // namespace plugincore
