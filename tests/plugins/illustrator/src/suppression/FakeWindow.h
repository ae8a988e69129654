#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ModalWindow.h"

// A window that records the events sent to it. A test can act or throw in two of its operations.
class FakeWindow : public ModalWindow {
public:
    explicit FakeWindow(std::string title, std::string className = "DVAMacDialog")
        : mTitle(std::move(title)), mClass(std::move(className))
    {
    }

    bool IsKindOfClass(const char* className) const override { return mClass == className; }
    std::string GetTitle() const override
    {
        if (onGetTitle) onGetTitle();
        return mTitle;
    }
    long GetWindowNumber() const override { return 4242; }
    void SendEvent(const SKeyEvent& event) override
    {
        events.push_back(event);
        characters.push_back(event.characters);
        charactersIgnoringModifiers.push_back(event.charactersIgnoringModifiers);
        if (onSendEvent) onSendEvent();
    }

    std::vector<SKeyEvent> events;  // their strings are no longer valid; the copies are
    std::vector<std::string> characters;
    std::vector<std::string> charactersIgnoringModifiers;
    std::function<void()> onGetTitle;
    std::function<void()> onSendEvent;

private:
    std::string mTitle;
    std::string mClass;
};
