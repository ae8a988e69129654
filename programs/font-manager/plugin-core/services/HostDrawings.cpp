#include "plugin-core/services/HostDrawings.h"

#include <dlfcn.h>

#include "documents/postscript/SlowDrawings.h"

void plugincore::ShareDrawingsWithHost()
{
    documents::SlowDrawings memory;
    // Looked up by name: PluginCore must load into programs that don't export them.
    memory.getSeconds = reinterpret_cast<decltype(memory.getSeconds)>(
        dlsym(RTLD_DEFAULT, "HeadlessHostGetDrawingSeconds"));
    memory.addSeconds = reinterpret_cast<decltype(memory.addSeconds)>(
        dlsym(RTLD_DEFAULT, "HeadlessHostAddDrawingSeconds"));
    if (memory.getSeconds != nullptr && memory.addSeconds != nullptr) {
        documents::UseSlowDrawings(memory);
    }
}
