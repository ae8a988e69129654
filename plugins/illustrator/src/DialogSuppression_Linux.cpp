#include <dlfcn.h>

#include <utility>

#include "DialogSuppression.h"
#include "HostPlatformTable_Linux.h"

namespace {

ModalSession BeginModalOverride(ModalWindow* window);

// What the override is exchanged with: after the exchange this is the host's own function.
BeginModalSessionFunction sBeginModalOverride = BeginModalOverride;

ModalSession BeginModalOverride(ModalWindow* window)
{
    if (window != nullptr) HandleModalWindow(*window);
    return sBeginModalOverride != nullptr ? sBeginModalOverride(window) : nullptr;
}

// The host calls the override for the rest of its life, also after it has unloaded the plug-in.
void KeepModuleLoaded()
{
    Dl_info module;
    if (dladdr(reinterpret_cast<void*>(&BeginModalOverride), &module) == 0) return;
    // A program that holds this code itself can't lose it: there the call fails, and may.
    (void)dlopen(module.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE);
}

}  // namespace

void InitSuppressionHooks()
{
    SHostPlatform* const platform = FindHostPlatform();
    if (platform == nullptr) return;
    KeepModuleLoaded();
    std::swap(platform->beginModalSession, sBeginModalOverride);
}
