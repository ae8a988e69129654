#include "suites/SuiteCall.h"
#include "suites/SuiteTable.h"
#include "suites/SuiteTables.h"

// The suites with which a plug-in registers for messages: notifiers, file formats, timers.
namespace headless {

namespace {

const SuiteRow& kNotifierSuite = *FindSuiteRow("AI Notifier Suite");
const SuiteRow& kFileFormatSuite = *FindSuiteRow("AI File Format Suite");
const SuiteRow& kTimerSuite = *FindSuiteRow("AI Timer Suite");

// Issues a handle for the object, adds it to `list` and returns it to the plug-in in `result`.
template <class Object, class Handle>
void Register(SuiteCall& call, Object object, std::vector<void*>& list, const char* resultName,
              Handle* result)
{
    void* const handle = call.host.handles.Issue(std::make_shared<Object>(std::move(object)));
    list.push_back(handle);
    *result = static_cast<Handle>(handle);
    call.OutHandle(resultName, handle);
}

AIErr AddNotifier(SPPluginRef self, const char* name, const char* type, AINotifierHandle* notifier)
{
    return Answer(kNotifierSuite, "AddNotifier", [&](SuiteCall& call) {
        if (call.Find<PluginObject>(self) == nullptr || !call.Require(name, "name") ||
            !call.Require(type, "type") || !call.Require(notifier, "notifier")) {
            return kHostBadParameter;
        }
        call.Arg("name", std::string(name));
        call.Arg("type", std::string(type));
        Register(call, NotifierObject{name, type}, call.host.notifiers, "notifier", notifier);
        return kHostSuccess;
    });
}

// The text of the plug-in's string; empty for the null handle.
std::string GetText(SuiteCall& call, const ai::UnicodeString& string)
{
    if (GetHandle(string) == nullptr) return {};
    const auto* const object = call.Find<StringObject>(GetHandle(string));
    return object == nullptr ? std::string() : object->text;
}

AIErr AddFileFormatEx(SPPluginRef self, const char* name, PlatformAddFileFormatExData* data,
                      int32_t options, AIFileFormatHandle* format, int32_t)
{
    return Answer(kFileFormatSuite, "AddFileFormatEx", [&](SuiteCall& call) {
        if (call.Find<PluginObject>(self) == nullptr || !call.Require(name, "name") ||
            !call.Require(data, "data") || !call.Require(format, "format")) {
            return kHostBadParameter;
        }
        if (data->numTypes < 0 || (data->numTypes > 0 && data->typeList == nullptr)) {
            return call.Refuse(kBadArgument, "the list of types is invalid");
        }
        FileFormatObject object;
        object.name = name;
        object.title = GetText(call, data->title);
        object.extensions = GetText(call, data->extensions);
        object.types.assign(data->typeList, data->typeList + data->numTypes);
        object.options = options;
        call.Arg("name", object.name);
        call.Arg("title", object.title);
        call.Arg("extensions", object.extensions);
        call.Arg("types", object.types);
        call.Arg("options", options);
        Register(call, std::move(object), call.host.fileFormats, "format", format);
        return kHostSuccess;
    });
}

AIErr SetFileFormatPriority(AIFileFormatHandle format, int32_t priority)
{
    return Answer(kFileFormatSuite, "SetFileFormatPriority", [&](SuiteCall& call) {
        call.Handle("format", format);
        call.Arg("priority", priority);
        auto* const object = call.Find<FileFormatObject>(format);
        if (object == nullptr) return kHostBadParameter;
        object->priority = priority;
        return kHostSuccess;
    });
}

AIErr AddTimer(SPPluginRef self, const char* name, int32_t period, AITimerHandle* timer)
{
    return Answer(kTimerSuite, "AddTimer", [&](SuiteCall& call) {
        call.Arg("period", period);
        if (call.Find<PluginObject>(self) == nullptr || !call.Require(name, "name") ||
            !call.Require(timer, "timer")) {
            return kHostBadParameter;
        }
        call.Arg("name", std::string(name));
        if (period < 0) return call.Refuse(kBadArgument, "the period is negative");
        Register(call, TimerObject{name, period, true}, call.host.timers, "timer", timer);
        return kHostSuccess;
    });
}

AIErr GetTimerActive(AITimerHandle timer, bool* active)
{
    return Answer(kTimerSuite, "GetTimerActive", [&](SuiteCall& call) {
        call.Handle("timer", timer);
        const auto* const object = call.Find<TimerObject>(timer);
        if (object == nullptr || !call.Require(active, "active")) return kHostBadParameter;
        *active = object->isActive;
        call.Out("active", *active);
        return kHostSuccess;
    });
}

AIErr SetTimerActive(AITimerHandle timer, bool active)
{
    return Answer(kTimerSuite, "SetTimerActive", [&](SuiteCall& call) {
        call.Handle("timer", timer);
        call.Arg("active", active);
        auto* const object = call.Find<TimerObject>(timer);
        if (object == nullptr) return kHostBadParameter;
        object->isActive = active;
        return kHostSuccess;
    });
}

}  // namespace

const AINotifierSuite kNotifierTable = {AddNotifier};
const AIFileFormatSuite kFileFormatTable = {AddFileFormatEx, SetFileFormatPriority};
const AITimerSuite kTimerTable = {AddTimer, GetTimerActive, SetTimerActive};

}  // namespace headless
