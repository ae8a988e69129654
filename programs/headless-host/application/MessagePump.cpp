#include "application/MessagePump.h"

#include <algorithm>

#include "model/PluginCode.h"
#include "suites/SuiteTables.h"

namespace headless {

namespace {

constexpr int32_t kCheckWord = 0x53504D73;  // 'SPMs'

// The fields of AIFileFormatMessage. The path belongs to the host, and the destructor of the real
// record's path would release it through the suites.
struct CheckMessage {
    SPMessageData d;
    void* path;
};
static_assert(sizeof(CheckMessage) == sizeof(AIFileFormatMessage));

// Whether the plug-in walks the document's art in this message. Each walk may leave one art set.
bool ScansFonts(const std::string& caller, const std::string& selector, const std::string& type)
{
    return type == "AI Document Opened Notifier" || (caller == "AI Menu" && selector == "AI Go");
}

}  // namespace

SPMessageData MessagePump::MakeHead() const
{
    return {kCheckWord, static_cast<SPPluginRef>(mHost.plugin), mHost.globalsWord, &gBasicSuite};
}

AIErr MessagePump::Send(const char* caller, const char* selector, void* message,
                        SPMessageData& head, nlohmann::json arguments)
{
    arguments["caller"] = caller == nullptr ? nlohmann::json() : nlohmann::json(caller);
    arguments["selector"] = selector == nullptr ? nlohmann::json() : nlohmann::json(selector);
    std::string callerText = caller == nullptr ? "" : caller;
    std::string selectorText = selector == nullptr ? "" : selector;
    const HandleRegister::Message outer = mHost.handles.BeginMessage(
        arguments.contains("raw") ||
        ScansFonts(callerText, selectorText, arguments.value("type", "")));
    mHost.walkLimit.BeginMessage();
    mHost.journal.Write("host", "send", arguments, nullptr);
    const bool hadGlobals = head.globals != nullptr;
    ++mDepth;
    const AIErr result = Call(caller == nullptr ? nullptr : callerText.data(),
                              selector == nullptr ? nullptr : selectorText.data(), message);
    if (--mDepth > 0) mHost.handles.ResumeMessage(outer);
    // A message without globals, which only scripts send, doesn't make the plug-in forget them.
    if (hadGlobals || head.globals != nullptr) mHost.globalsWord = head.globals;
    mHost.lastAnswer = result;
    mHost.journal.Write("host", "answer", arguments, result);
    return result;
}

AIErr MessagePump::Call(char* caller, char* selector, void* message)
{
    const plugin_code::Scope scope(true);
    try {
        return mMain(caller, selector, message);
    } catch (...) {
        const plugin_code::Scope inHost(false);
        mHost.violations.Add(kExceptionLeavesPlugin, std::string(caller == nullptr ? "" : caller) +
                                                         "/" +
                                                         (selector == nullptr ? "" : selector) +
                                                         ": an exception leaves the plug-in");
        return kHostBadParameter;
    }
}

AIErr MessagePump::SendInterface(const char* selector)
{
    SPInterfaceMessage message{MakeHead()};
    return Send("SP Interface", selector, &message, message.d, nlohmann::json::object());
}

AIErr MessagePump::SendUnload()
{
    SPInterfaceMessage message{MakeHead()};
    return Send("SP Access", "Unload", &message, message.d, nlohmann::json::object());
}

AIErr MessagePump::SendRaw(const char* caller, const char* selector, RawMessage* message,
                           nlohmann::json arguments)
{
    if (message != nullptr) {
        arguments["raw"] = {{"self", message->d.self != nullptr},
                            {"basic", message->d.basic != nullptr},
                            {"globals", message->d.globals != nullptr},
                            {"handle", mHost.handles.Describe(message->words[0])},
                            {"type", message->words[1] != nullptr},
                            {"data", mHost.handles.Describe(message->words[2])}};
    } else {
        arguments["raw"] = nullptr;
    }
    SPMessageData none = MakeHead();
    return Send(caller, selector, message, message == nullptr ? none : message->d,
                std::move(arguments));
}

void MessagePump::Notify(const std::string& type, void* notifyData)
{
    const std::vector<void*> notifiers = mHost.notifiers;  // a message may add notifiers
    for (void* const handle : notifiers) {
        const auto* const notifier = mHost.handles.Peek<NotifierObject>(handle);
        if (notifier == nullptr || notifier->type != type) continue;
        // A host ignores the result of a notifier; the journal holds it.
        (void)SendNotifier(handle, type, notifyData);
    }
}

AIErr MessagePump::SendNotifier(void* notifier, const std::string& type, void* notifyData)
{
    std::string typeText = type;
    AINotifierMessage message{MakeHead(), static_cast<AINotifierHandle>(notifier), typeText.data(),
                              notifyData};
    const auto* const object = mHost.handles.Peek<NotifierObject>(notifier);
    return Send("AI Notifier", "AI Notify", &message, message.d,
                {{"type", type},
                 {"notifier", object == nullptr ? std::string() : object->name},
                 {"handle", mHost.handles.Describe(notifier)},
                 {"notifyData", mHost.handles.Describe(notifyData)}});
}

void MessagePump::NotifyMenuChanges()
{
    if (mHost.menuChanges == mNotifiedMenuChanges) return;
    mNotifiedMenuChanges = mHost.menuChanges;
    Notify("AI Menu Changed Notifier", nullptr);
}

void MessagePump::SendCheck(const std::string& path)
{
    std::vector<void*> formats = mHost.fileFormats;
    std::stable_sort(formats.begin(), formats.end(), [this](void* a, void* b) {
        return mHost.handles.Peek<FileFormatObject>(a)->priority >
               mHost.handles.Peek<FileFormatObject>(b)->priority;
    });
    void* const pathHandle = mHost.AddPath(path);
    // The result doesn't matter: the host reads the file with its own readers.
    for (void* const format : formats) (void)SendCheck(format, pathHandle);
    mHost.RemovePath(pathHandle);
}

AIErr MessagePump::SendCheck(void* format, void* path)
{
    CheckMessage message{MakeHead(), path};
    const auto* const object = mHost.handles.Peek<FileFormatObject>(format);
    const auto* const file = mHost.handles.Peek<PathObject>(path);
    return Send("AI File Format", "AI Check", &message, message.d,
                {{"format", object == nullptr ? std::string() : object->name},
                 {"handle", mHost.handles.Describe(format)},
                 {"path", file == nullptr ? std::string() : file->path},
                 {"pathHandle", mHost.handles.Describe(path)}});
}

void MessagePump::SendTimers(unsigned long tick)
{
    const std::vector<void*> timers = mHost.timers;
    for (void* const handle : timers) {
        const auto* const timer = mHost.handles.Peek<TimerObject>(handle);
        if (timer == nullptr || !timer->isActive) continue;
        if (timer->period > 1 && tick % static_cast<unsigned long>(timer->period) != 0) continue;
        (void)SendTimer(handle);  // a host ignores the result of a timer
    }
}

AIErr MessagePump::SendTimer(void* timer)
{
    AITimerMessage message{MakeHead()};
    const auto* const object = mHost.handles.Peek<TimerObject>(timer);
    return Send("AI Timer", "AI Go", &message, message.d,
                {{"timer", object == nullptr ? std::string() : object->name},
                 {"handle", mHost.handles.Describe(timer)}});
}

AIErr MessagePump::SendMenu(const char* selector, void* item)
{
    AIMenuMessage message{MakeHead(), static_cast<AIMenuItemHandle>(item)};
    const auto* const object = mHost.handles.Peek<MenuItemObject>(item);
    return Send("AI Menu", selector, &message, message.d,
                {{"item", mHost.handles.Describe(item)},
                 {"text", object == nullptr ? std::string() : object->text}});
}

}  // namespace headless
