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
        arguments.value("raw", false) ||
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
    SPMessageData none = MakeHead();
    arguments["raw"] = true;
    return Send(caller, selector, message, message == nullptr ? none : message->d,
                std::move(arguments));
}

void MessagePump::Notify(const std::string& type, void* notifyData)
{
    const std::vector<void*> notifiers = mHost.notifiers;  // a message may add notifiers
    for (void* const handle : notifiers) {
        const auto* const notifier = mHost.handles.Peek<NotifierObject>(handle);
        if (notifier == nullptr || notifier->type != type) continue;
        std::string typeText = type;
        AINotifierMessage message{MakeHead(), static_cast<AINotifierHandle>(handle),
                                  typeText.data(), notifyData};
        // A host ignores the result of a notifier; the journal holds it.
        (void)Send("AI Notifier", "AI Notify", &message, message.d,
                   {{"type", type},
                    {"notifier", notifier->name},
                    {"notifyData", mHost.handles.Describe(notifyData)}});
    }
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
    void* const pathHandle = mHost.handles.Issue(std::make_shared<PathObject>(PathObject{path}));
    mHost.handles.KeepForHost(pathHandle);
    for (void* const format : formats) {
        CheckMessage message{MakeHead(), pathHandle};
        const std::string name = mHost.handles.Peek<FileFormatObject>(format)->name;
        // The result doesn't matter: the host reads the file with its own readers.
        (void)Send("AI File Format", "AI Check", &message, message.d,
                   {{"format", name}, {"path", path}});
    }
    mHost.handles.Expire(pathHandle);
}

void MessagePump::SendTimers(unsigned long tick)
{
    const std::vector<void*> timers = mHost.timers;
    for (void* const handle : timers) {
        const auto* const timer = mHost.handles.Peek<TimerObject>(handle);
        if (timer == nullptr || !timer->isActive) continue;
        if (timer->period > 1 && tick % static_cast<unsigned long>(timer->period) != 0) continue;
        AITimerMessage message{MakeHead()};
        // A host ignores the result of a timer.
        (void)Send("AI Timer", "AI Go", &message, message.d, {{"timer", timer->name}});
    }
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
