#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "PlugPlugFunctions.h"

// What a scripted PlugPlug answers and what it was asked: one state per framework, which lives as
// long as its library. Header alone, so that it can be used on both sides of a library.
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
        const char* dataAddress = nullptr;  // where the data stood, for who keeps it
    };

    // The names of the functions called, in order.
    std::vector<std::string> calls;

    // The listeners whose adding was answered with 0, and those of all attempts.
    std::vector<Listener> listeners;
    std::vector<Listener> attempts;
    std::vector<DispatchedEvent> events;

    // Answers by function name: the first ones, used up one per call, and then the lasting one. A
    // name that isn't there is answered with 0.
    std::map<std::string, std::vector<int>> firstAnswers;
    std::map<std::string, int> answers;

    // Runs inside every call of that name, after it was recorded and before it is answered.
    std::map<std::string, std::function<void()>> onCall;

    // Calls the listeners of the type, in order, and says how many there were. Nothing is recorded.
    // A dispatch calls none: it is only recorded.
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

// What a library exports as "ScriptedPlugPlug_GetState" and "ScriptedPlugPlug_Reset". A reset gives
// the state that the library has when it is loaded.
typedef ScriptedPlugPlug* (*ScriptedPlugPlugGetStateFunction)();
typedef void (*ScriptedPlugPlugResetFunction)();
