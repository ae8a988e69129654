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

}  // namespace

void InitSuppressionHooks()
{
    SHostPlatform* const platform = FindHostPlatform();
    if (platform == nullptr) return;
    std::swap(platform->beginModalSession, sBeginModalOverride);
}
