#include "DialogSuppression.h"

#include <cstdio>
#include <utility>

#include "HostPlatformTable_Linux.h"

namespace {

ModalSession BeginModalOverride(ModalWindow* window);

// The function to swap with the host's: holds the host's own function once the hook is installed.
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
        // Linux has no system log for this. If standard error is closed, the line is lost.
        (void)std::fprintf(stderr, "Exception when beginModalOverride:  exception=%s\n",
                           exception.what());
    }
}
