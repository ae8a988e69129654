#pragma once

#include <optional>
#include <string>

namespace plugincore {

// Whether the host of this process has a document with this path open. Nothing if the host doesn't
// export a function that answers this. [main-thread]
std::optional<bool> IsOpenInHost(const std::string& path);

}  // namespace plugincore
