#pragma once

#include <exception>
#include <string>
#include <utility>

// A key event as it is handed to a window; both texts are UTF-8 and belong to the sender.
struct SKeyEvent {
    int type;
    double x, y;
    unsigned modifierFlags;
    double timestamp;
    long windowNumber;
    const char* characters;
    const char* charactersIgnoringModifiers;
    bool isARepeat;
    unsigned short keyCode;
};

// What a window may throw: it stands for the platform's own exception.
struct ModalWindowException : std::exception {
    ModalWindowException() = default;
    explicit ModalWindowException(std::string text) : reason(std::move(text)) {}
    const char* what() const noexcept override { return reason.c_str(); }

    std::string reason = "ModalWindowException";
};

// A window that is about to go modal. It belongs to the host.
class ModalWindow {
public:
    virtual ~ModalWindow() = default;

    // False also for a class that doesn't exist.
    virtual bool IsKindOfClass(const char* className) const = 0;
    virtual std::string GetTitle() const = 0;
    virtual long GetWindowNumber() const = 0;

    // Delivers the event straight to the window, before this returns.
    virtual void SendEvent(const SKeyEvent& event) = 0;
};
