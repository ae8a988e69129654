#pragma once

#include <string>
#include <vector>

namespace plugincore {

// Opens folders with the desktop's file manager: starts `gio open FOLDER...` in a session of its
// own, without its output, and doesn't wait for its end.
//
// folders   absolute paths
// Returns false, and starts nothing, if there is no desktop (neither DISPLAY nor WAYLAND_DISPLAY is
// set), no folder or no program `gio` that can be started.
bool OpenInFileManager(const std::vector<std::string>& folders);

}  // namespace plugincore
