#pragma once

#include "ModalWindow.h"

// Services that AppKit and the main bundle provide on macOS. Elsewhere the host executable provides
// them in one table. [main-thread]

typedef void* ModalSession;  // the host's own value, passed through unchanged
typedef ModalSession (*BeginModalSessionFunction)(ModalWindow* window);

struct SHostPlatform {
    // Begins a modal session for `window` and returns it. The host calls through this slot whenever
    // a window goes modal. The plug-in replaces the slot by its own function, which calls the old
    // one; it never restores it. Can be called while the plug-in handles a message.
    BeginModalSessionFunction beginModalSession;

    // Shows a modal alert and returns when it is dismissed. Both texts are zero-terminated UTF-8
    // and belong to the caller.
    void (*showAlert)(const char* messageText, const char* informativeText);

    // The folder of the host's private frameworks, in UTF-8; null if there is none. Belongs to the
    // host and is valid until the host ends.
    const char* privateFrameworksPath;
};

// Returns the table, which belongs to the host and is valid until the host ends. The plug-in looks
// this function up by name in the host executable. If it is missing, the plug-in writes alerts to
// standard error and finds neither modal sessions nor private frameworks.
extern "C" __attribute__((visibility("default"))) SHostPlatform* GetHostPlatform();
