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
        // If standard error is closed, there is no other place for the text.
        (void)std::fprintf(stderr, "%s\n%s\n", message, informative);
    }
    return 0;
}
