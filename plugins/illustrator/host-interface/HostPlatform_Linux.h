#pragma once

#include "ModalWindow.h"

// What the window system and the main bundle give elsewhere comes from one table here, which the
// host executable exports.

typedef void* ModalSession;
typedef ModalSession (*BeginModalSessionFunction)(ModalWindow* window);

struct SHostPlatform {
    // Begins a modal session for the window. The plug-in exchanges this slot for its own function.
    BeginModalSessionFunction beginModalSession;

    // Shows a modal alert and returns when it is dismissed. Both texts are UTF-8.
    void (*showAlert)(const char* messageText, const char* informativeText);

    // The folder of the host's private frameworks; owned by the host, valid for its life.
    const char* privateFrameworksPath;
};

// Looked up by name in the host executable. A host without it has no hook and no frameworks, and
// its alerts go to standard error.
extern "C" __attribute__((visibility("default"))) SHostPlatform* GetHostPlatform();
