#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "PlugPlugFunctions.h"

// The state of a scripted PlugPlug: what it returns and how it was called. One per framework, valid
// as long as its library is loaded. Header only, so that the test and the library can both use it.
struct ScriptedPlugPlug {
    struct Listener {
        std::string type;
        PlugPlugEventHandler handler = nullptr;
        void* context = nullptr;
    };

    // A copy of a dispatched event; a null text is an empty optional.
    struct DispatchedEvent {
        std::optional<std::string> type;
        std::int32_t scope = 0;
        std::optional<std::string> appId;
        std::optional<std::string> extensionId;
        std::optional<std::string> data;
        const char* dataAddress = nullptr;  // the sender's own string
    };

    // The names of the functions called, in order.
    std::vector<std::string> calls;

    // The listeners that were added, and those of all attempts.
    std::vector<Listener> listeners;
    std::vector<Listener> attempts;
    std::vector<DispatchedEvent> events;

    // Results by function name. Each call takes the next of `firstAnswers`; when none is left, the
    // result is that in `answers`, or 0.
    std::map<std::string, std::vector<int>> firstAnswers;
    std::map<std::string, int> answers;

    // Runs in every call of that function, after it is recorded and before it returns.
    std::map<std::string, std::function<void()>> onCall;

    // Calls the listeners of the type, in order, and returns how many there are; records nothing.
    // PlugPlugDispatchEvent, in contrast, only records and calls no listener.
    std::size_t Raise(const std::string& type, const PlugPlugEvent* event = nullptr) const
    {
        std::size_t count = 0;
        const std::vector<Listener> called = listeners;
        for (const Listener& listener : called) {
            if (listener.type != type) continue;
            listener.handler(event, listener.context);
            ++count;
        }
        return count;
    }

    std::size_t CountCalls(const std::string& name) const
    {
        std::size_t count = 0;
        for (const std::string& call : calls) count += call == name ? 1 : 0;
        return count;
    }
};

// Types of "ScriptedPlugPlug_GetState" and "ScriptedPlugPlug_Reset", which each library exports. A
// reset restores the state that the library has when it is loaded.
typedef ScriptedPlugPlug* (*ScriptedPlugPlugGetStateFunction)();
typedef void (*ScriptedPlugPlugResetFunction)();
