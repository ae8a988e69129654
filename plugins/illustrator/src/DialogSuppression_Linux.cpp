#include "DialogSuppression.h"

#include <cstdio>
#include <utility>

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

bool OSTitleContains(const std::string& title, const std::string& hint)
{
    return !hint.empty() && title.find(hint) != std::string::npos;
}

void OSCallGuarded(void (*action)(void* context), void* context)
{
    try {
        action(context);
    } catch (const ModalWindowException& exception) {
        // Standard error is the system log here; without one the text is lost.
        (void)std::fprintf(stderr, "Exception when beginModalOverride:  exception=%s\n",
                           exception.what());
    }
}
