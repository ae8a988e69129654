#pragma once

#include <exception>
#include <string>
#include <utility>

// A keyboard event to deliver to a window.
struct SKeyEvent {
    int type;                // 10 is a key press
    double x, y;             // location in the window
    unsigned modifierFlags;  // bits of the modifier keys held down
    double timestamp;        // in seconds
    long windowNumber;       // ModalWindow::GetWindowNumber of the receiver
    // Zero-terminated UTF-8, owned by the sender and valid until SendEvent returns.
    const char* characters;
    const char* charactersIgnoringModifiers;
    bool isARepeat;          // a key held down repeats its event
    unsigned short keyCode;  // the key's position on the keyboard, a virtual key code
};

// Thrown by ModalWindow's operations, in place of the platform's own exception.
struct ModalWindowException : std::exception {
    ModalWindowException() = default;
    explicit ModalWindowException(std::string text) : reason(std::move(text)) {}
    const char* what() const noexcept override { return reason.c_str(); }

    std::string reason = "ModalWindowException";  // shown in the plug-in's diagnostics
};

// A window that is about to go modal. It belongs to the host and is valid until
// SHostPlatform::beginModalSession returns. The operations may throw ModalWindowException, which
// the plug-in catches while it tests the title and sends the event. [main-thread]
class ModalWindow {
public:
    virtual ~ModalWindow() = default;

    // Returns whether the window is of the class or of a subclass; false for an unknown class.
    virtual bool IsKindOfClass(const char* className) const = 0;

    // Returns the title in UTF-8.
    virtual std::string GetTitle() const = 0;

    // Returns the number by which events name the window.
    virtual long GetWindowNumber() const = 0;

    // Delivers the event to the window and returns when the window has handled it.
    virtual void SendEvent(const SKeyEvent& event) = 0;
};
