#include "SimpleAlert.h"

#include <cstdio>

#include "HostPlatformTable_Linux.h"

int SimpleAlert(char const* messageText, char const* informativeText)
{
    const char* const message = messageText != nullptr ? messageText : "";
    const char* const informative = informativeText != nullptr ? informativeText : "";
    const SHostPlatform* const platform = FindHostPlatform();
    if (platform != nullptr && platform->showAlert != nullptr) {
        platform->showAlert(message, informative);
    } else {
        // With standard error gone there is nowhere left to say so.
        (void)std::fprintf(stderr, "%s\n%s\n", message, informative);
    }
    return 0;
}
