#include "TypeloftSPEA.h"

#include "DebugUtils.h"
#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "FileFormatHook.h"
#include "HandlerTrace.h"
#include "HostSuites.h"
#include "MenuSelection.h"
#include "PCILoader.h"
#include "PluginInfo.h"
#include "PluginStartup.h"
#include "SimpleAlert.h"
#include "TimerHandler.h"
#include "TraceArguments.h"

namespace {

int32_t gReentrantFlag = 0;

// Whether an exception ended the startup, because memory was missing for instance. The plug-in then
// ignores all messages, as one does that found no PluginCore: the host may have registered menus,
// notifiers or the timer before the exception.
bool gIsStartupUnfinished = false;

bool IsEqual(const char* a, const char* b) { return sSPBasic->IsEqual(a, b) != 0; }

void TraceUnhandledSelector() { OutputIndentedAndFormattedString(0, "...UNHANDLED SELECTOR"); }

// Without a usable PluginCore, returns success to the host and leaves the plug-in inert.
AIErr TestPluginCoreAndStart(SPInterfaceMessage* message)
{
    PCILoader* const loader = PCILoader::GetSharedInstance();
    if (loader == nullptr) {
        // SimpleAlert always returns 0.
        (void)SimpleAlert("Missing PluginCore", PluginInfo::GetPluginPath(nullptr).c_str());
        return kHostSuccess;
    }
    std::string path;
    std::string version;
    int missingCount = 0;
    if (!loader->IsLoaded(&path, &version, &missingCount)) return kHostSuccess;
    return StartupPlugin(message);
}

AIErr HandleInterfaceSelector(char* selector, SPInterfaceMessage* message)
{
    if (IsEqual(selector, "Startup")) {
        gIsStartupUnfinished = true;
        const AIErr result = TestPluginCoreAndStart(message);
        gIsStartupUnfinished = false;
        return result;
    }
    if (gIsStartupUnfinished) return kHostSuccess;
    if (IsEqual(selector, "About")) return AboutPlugin(message);
    if (IsEqual(selector, "Shutdown")) return ShutdownPlugin(message);
    OutputIndentedAndFormattedString(0, "- unknown message from kSPInterfaceCaller");
    return kHostSuccess;
}

AIErr innerMain(char* caller, char* selector, void* message)
{
    if (gReentrantFlag != 0) return 1;
    gReentrantFlag = 1;

    const auto* const data = static_cast<const SPMessageData*>(message);
    gMessage = message;
    sSPBasic = data != nullptr ? data->basic : nullptr;
    gGlobals = data != nullptr ? static_cast<SGlobals*>(data->globals) : nullptr;

    AIErr result = kHostSuccess;
    if (sSPBasic == nullptr) {
        OutputIndentedAndFormattedString(0, "- no basic suite available in message");
    } else {
        // On a failure the next message tries again. Handlers check for suites that are missing.
        (void)AcquireSuites(sSPBasic);
        result = IsEqual(caller, "SP Interface")
                     ? HandleInterfaceSelector(selector, static_cast<SPInterfaceMessage*>(message))
                     : HandlePluginCaller(caller, selector, message);
    }
    gReentrantFlag = 0;
    return result;
}

void HandleFileFormatCheck(AIFileFormatMessage* message)
{
    const std::string path = GetDocumentPathFromFileFormatMessage(message);
    if (path.empty()) return;
    SetFilePathForDocumentHandle(nullptr, path);
    HandleCheckFileFormat(path, json());
}

AIErr DispatchCaller(char* caller, char* selector, void* message)
{
    if (gIsStartupUnfinished) {
        // -1 is the answer "not ours", which lets the host read the file.
        const bool isCheck = IsEqual(caller, "AI File Format") && IsEqual(selector, "AI Check");
        return isCheck ? -1 : kHostSuccess;
    }
    if (IsEqual(caller, "AI Menu")) {
        OutputIndentedAndFormattedString(0, "- caller is kCallerAIMenu");
        if (IsEqual(selector, "AI Go")) {
            OutputIndentedAndFormattedString(0, "- selector is kSelectorAIGoMenuItem");
            return GoMenuItem(static_cast<AIMenuMessage*>(message));
        }
        if (IsEqual(selector, "AI Update")) {
            // The host wants the items updated and doesn't use a result.
            (void)updateMenuItem(static_cast<AIMenuMessage*>(message));
            return kHostSuccess;
        }
        TraceUnhandledSelector();
        return kHostSuccess;
    }
    if (IsEqual(caller, "AI Notifier")) {
        if (IsEqual(selector, "AI Notify")) {
            return GoNotifier(static_cast<AINotifierMessage*>(message));
        }
        TraceUnhandledSelector();
        return kHostSuccess;
    }
    if (IsEqual(caller, "AI File Format")) {
        if (IsEqual(selector, "AI Check")) {
            // We registered a file format only to be asked about each file. -1 means "not ours".
            HandleFileFormatCheck(static_cast<AIFileFormatMessage*>(message));
            return -1;
        }
        TraceUnhandledSelector();
        return kHostSuccess;
    }
    if (IsEqual(caller, "AI Timer")) {
        // GoTimer always returns 0.
        if (IsEqual(selector, "AI Go")) (void)GoTimer(static_cast<AITimerMessage*>(message));
        return kHostSuccess;
    }
    if (IsEqual(caller, "SP Access")) {
        // 1 refuses to be unloaded.
        const bool isNeeded = IsEqual(selector, "Unload") && gGlobals != nullptr;
        return isNeeded ? 1 : 0;
    }
    OutputIndentedAndFormattedString(
        0, "%s(caller='%s', selector='%s', message=0x%08x) doing nothing.", "HandlePluginCaller",
        caller, selector, TracePointer(message));
    return kHostSuccess;
}

}  // namespace

AIErr Main(char* caller, char* selector, void* message)
{
    try {
        return innerMain(caller, selector, message);
    } catch (...) {
        gReentrantFlag = 0;
        OutputIndentedAndFormattedString(0, "Unhandled exception in Typeloft plugin.");
        return kHostSuccess;
    }
}

AIErr HandlePluginCaller(char* caller, char* selector, void* message)
{
    // Timer ticks are so frequent that they would drown all other lines.
    const bool isTraced = !IsEqual(caller, "AI Timer");
    if (isTraced) {
        OutputIndentedAndFormattedString(
            1, "Entering %s(caller='%s', selector='%s', message=0x%08x)", "HandlePluginCaller",
            caller, selector, TracePointer(message));
    }
    const AIErr result = DispatchCaller(caller, selector, message);
    if (isTraced) {
        OutputIndentedAndFormattedString(
            -1, "%s(caller='%s', selector='%s', message=0x%08x) returning %d", "HandlePluginCaller",
            caller, selector, TracePointer(message), result);
    }
    return result;
}

AIErr GoNotifier(AINotifierMessage* message)
{
    if (message == nullptr || gGlobals == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s(message->notifier = 0x%08x)", "GoNotifier",
                                     TracePointer(message->notifier));

    struct Row {
        AINotifierHandle SGlobals::*notifier;
        AIErr (*handler)(AINotifierMessage*);
    };
    static constexpr Row kRows[] = {
        {&SGlobals::startupNotifier, HandleStartupNotifier},
        {&SGlobals::shutdownNotifier, HandleShutdownNotifier},
        {&SGlobals::documentOpenedNotifier, HandleDocumentOpenedNotifier},
        {&SGlobals::documentAboutToCloseNotifier, HandleDocumentAboutToCloseNotifier},
        {&SGlobals::documentClosedNotifier, HandleDocumentClosedNotifier},
        {&SGlobals::documentNewNotifier, HandleDocumentNewNotifier},
        {&SGlobals::documentChangedNotifier, HandleDocumentChangedNotifier},
        {&SGlobals::afterSaveNotifier, HandleDocumentSavedNotifier},
        {&SGlobals::afterSaveAsNotifier, HandleDocumentSavedNotifier},
        {&SGlobals::diskWritingCompleteNotifier, HandleDocumentSavedNotifier},
        {&SGlobals::fontListChangedNotifier, HandleFontListChangedNotifier},
    };
    AIErr result = kHostSuccess;
    const Row* found = nullptr;
    for (const Row& row : kRows) {
        if (message->notifier != gGlobals->*row.notifier) continue;
        found = &row;
        break;
    }
    if (found != nullptr) {
        result = found->handler(message);
    } else {
        OutputIndentedAndFormattedString(0, "UNHANDLED NOTIFIER MESSAGE TYPE:  %s",
                                         TraceText(message->type));
    }
    OutputIndentedAndFormattedString(-1, "%s returning %d", "GoNotifier", result);
    return result;
}

AIErr HandleStartupNotifier(AINotifierMessage* message)
{
    return HandleMessage("HandleStartupNotifier", message, [] { return kHostSuccess; });
}

AIErr HandleShutdownNotifier(AINotifierMessage* message)
{
    return HandleMessage("HandleShutdownNotifier", message, [message] {
        // ShutdownPlugin reads only the header, which all messages share. Its result isn't passed
        // on because the application quits in any case.
        (void)ShutdownPlugin(reinterpret_cast<SPInterfaceMessage*>(message));
        return kHostSuccess;
    });
}
