#include "TypeloftSPEA.h"

#include "DebugUtils.h"
#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "FileFormatHook.h"
#include "HostSuites.h"
#include "MenuHandler.h"
#include "PCILoader.h"
#include "PluginInfo.h"
#include "PluginStartup.h"
#include "SimpleAlert.h"
#include "TimerHandler.h"
#include "TraceArguments.h"

SPBasicSuite* sSPBasic = nullptr;
SGlobals* gGlobals = nullptr;
void* gMessage = nullptr;

namespace {

int32_t gReentrantFlag = 0;

bool IsEqual(const char* a, const char* b) { return sSPBasic->IsEqual(a, b) != 0; }

void TraceUnhandledSelector() { OutputIndentedAndFormattedString(0, "...UNHANDLED SELECTOR"); }

// With no PluginCore, or one that can't be used, the host is told that all went well and the
// plug-in stays inert.
AIErr TestPluginCoreAndStart(SPInterfaceMessage* message)
{
    PCILoader* const loader = PCILoader::GetSharedInstance();
    if (loader == nullptr) {
        // The alert's result is always 0.
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
    if (IsEqual(selector, "Startup")) return TestPluginCoreAndStart(message);
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
        // Tried again with the next message; the handlers meet the missing suites.
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
    if (IsEqual(caller, "AI Menu")) {
        OutputIndentedAndFormattedString(0, "- caller is kCallerAIMenu");
        if (IsEqual(selector, "AI Go")) {
            OutputIndentedAndFormattedString(0, "- selector is kSelectorAIGoMenuItem");
            return GoMenuItem(static_cast<AIMenuMessage*>(message));
        }
        if (IsEqual(selector, "AI Update")) {
            // The host asks for the items' state, not for a result.
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
            // The plug-in is a file format in order to be asked, and never claims a file.
            HandleFileFormatCheck(static_cast<AIFileFormatMessage*>(message));
            return -1;
        }
        TraceUnhandledSelector();
        return kHostSuccess;
    }
    if (IsEqual(caller, "AI Timer")) {
        // A tick has no result.
        if (IsEqual(selector, "AI Go")) (void)GoTimer(static_cast<AITimerMessage*>(message));
        return kHostSuccess;
    }
    if (IsEqual(caller, "SP Access")) {
        const bool mustStay = IsEqual(selector, "Unload") && gGlobals != nullptr;
        return mustStay ? 1 : 0;
    }
    OutputIndentedAndFormattedString(
        0, "%s(caller='%s', selector='%s', message=0x%08x) doing nothing.", "HandlePluginCaller",
        caller, selector, TracePointer(message));
    return kHostSuccess;
}

}  // namespace

void ThrowAIErr(int code)
{
    if (code == kHostSuccess) return;
    OutputIndentedAndFormattedString(0, "ERROR:  throwing %d.", code);
    throw code;
}

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
    // The timer ticks all the time and would drown the rest.
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
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s", "HandleStartupNotifier");
    OutputIndentedAndFormattedString(-1, "%s returning %d", "HandleStartupNotifier", kHostSuccess);
    return kHostSuccess;
}

AIErr HandleShutdownNotifier(AINotifierMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s", "HandleShutdownNotifier");
    // Of both records the shutdown knows only the head, which is the same. Its result has no
    // receiver: the application ends in any case.
    (void)ShutdownPlugin(reinterpret_cast<SPInterfaceMessage*>(message));
    OutputIndentedAndFormattedString(-1, "%s returning %d", "HandleShutdownNotifier", kHostSuccess);
    return kHostSuccess;
}
