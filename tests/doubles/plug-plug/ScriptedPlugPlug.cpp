#include "ScriptedPlugPlug.h"

#include "PlugPlugEvent.h"

namespace {

ScriptedPlugPlug MakeState()
{
    ScriptedPlugPlug state;
#ifdef SCRIPTED_PLUG_PLUG_LISTENER_FAILS_ONCE
    state.firstAnswers["PlugPlugAddEventListener"] = {7};
#endif
    return state;
}

ScriptedPlugPlug& State()
{
    static ScriptedPlugPlug state = MakeState();
    return state;
}

int Answer(const std::string& name)
{
    State().calls.push_back(name);
    const auto action = State().onCall.find(name);
    if (action != State().onCall.end()) action->second();
    std::vector<int>& first = State().firstAnswers[name];
    if (first.empty()) return State().answers[name];
    const int answer = first.front();
    first.erase(first.begin());
    return answer;
}

std::optional<std::string> Copy(const char* text)
{
    return text == nullptr ? std::nullopt : std::optional<std::string>(text);
}

}  // namespace

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED ScriptedPlugPlug* ScriptedPlugPlug_GetState() { return &State(); }

EXPORTED void ScriptedPlugPlug_Reset() { State() = MakeState(); }

EXPORTED int PlugPlugLoadExtension(const char*) { return Answer("PlugPlugLoadExtension"); }

EXPORTED int PlugPlugUnloadExtension(const char*) { return Answer("PlugPlugUnloadExtension"); }

EXPORTED int PlugPlugAddEventListener(const char* type, PlugPlugEventHandler handler, void* context)
{
    const ScriptedPlugPlug::Listener listener = {type == nullptr ? "" : type, handler, context};
    State().attempts.push_back(listener);
    const int answer = Answer("PlugPlugAddEventListener");
    if (answer == 0) State().listeners.push_back(listener);
    return answer;
}

EXPORTED int PlugPlugRemoveEventListener(const char*, PlugPlugEventHandler, void*)
{
    return Answer("PlugPlugRemoveEventListener");
}

EXPORTED int PlugPlugDispatchEvent(const PlugPlugEvent* event)
{
    if (event != nullptr) {
        State().events.push_back({Copy(event->type), static_cast<std::int32_t>(event->scope),
                                  Copy(event->appId), Copy(event->extensionId), Copy(event->data),
                                  event->data});
    }
    return Answer("PlugPlugDispatchEvent");
}
