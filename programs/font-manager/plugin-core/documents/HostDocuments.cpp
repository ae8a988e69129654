#include "plugin-core/documents/HostDocuments.h"

#include <dlfcn.h>

std::optional<bool> plugincore::IsOpenInHost(const std::string& path)
{
    using Function = bool (*)(const char* path);
    // Looked up by name: PluginCore must load into programs that don't export it.
    static const auto sIsOpen =
        reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, "HeadlessHostIsDocumentOpen"));
    if (sIsOpen == nullptr) return std::nullopt;
    return sIsOpen(path.c_str());
}
