#pragma once

namespace plugincore {

// Makes PluginCore use the memory of slow drawings (see documents::SlowDrawings) that the host of
// this process exports. Does nothing in other programs. [main-thread]
void ShareDrawingsWithHost();

}  // namespace plugincore
