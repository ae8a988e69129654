#include "PluginStartup.h"

#include <string>

#include "CurrentDocument.h"
#include "DebugUtils.h"
#include "DialogSuppression.h"
#include "DropExceptions.h"
#include "FileFormatHook.h"
#include "HandlerTrace.h"
#include "HostSuites.h"
#include "LibraryMenu.h"
#include "MenuConstruction.h"
#include "PCILoader.h"
#include "TimerHandler.h"

namespace {

constexpr int64_t kGlobalsVersion = 2023;

constexpr char kBundleIdentifier[] = "com.corvanta.AutoActivationPlugin.AI24";
constexpr char kHostVersion[] = "24";

// PluginCore takes no size for this buffer.
constexpr size_t kDialogBufferSize = 256;

constexpr char kBlocksSuiteName[] = "SP Blocks Suite";
constexpr int kBlocksSuiteVersion = 2;
constexpr char kNotifierSuiteName[] = "AI Notifier Suite";
constexpr int kNotifierSuiteVersion = 1004;

struct NotifierRow {
    const char* name;
    const char* type;
    AINotifierHandle SGlobals::*field;
    const char* trace;
};

constexpr NotifierRow kNotifiers[] = {
    {"Change!", "AI Document Changed Notifier", &SGlobals::documentChangedNotifier,
     "...adding Change notifier"},
    {"Open!", "AI Document Opened Notifier", &SGlobals::documentOpenedNotifier,
     "...adding Open notifier"},
    {"AboutToClose!", "AI Document About To Close Notifier",
     &SGlobals::documentAboutToCloseNotifier, "...adding AboutToClose notifier"},
    {"Close!", "AI Document Closed Notifier", &SGlobals::documentClosedNotifier,
     "...adding Close notifier"},
    {"New!", "AI Document New Notifier", &SGlobals::documentNewNotifier,
     "...adding DocumentNew notifier"},
    {"Startup", "AI Application Started Notifier", &SGlobals::startupNotifier,
     "...adding Startup notifier"},
    {"Shutdown", "AI Application Shutdown Notifier", &SGlobals::shutdownNotifier,
     "...adding Shutdown notifier"},
    {"font-list change", "AI Font List Changed Notifier", &SGlobals::fontListChangedNotifier,
     "...adding font-list changed notifier"},
    {"Menu Changed", "AI Menu Changed Notifier", &SGlobals::menuChangedNotifier,
     "...adding Menu Changed notifier"},
    {"Save", "AI Command Notifier: After Save", &SGlobals::afterSaveNotifier,
     "...adding Save notifier"},
    {"Save As", "AI Command Notifier: After Save As", &SGlobals::afterSaveAsNotifier,
     "...adding Save As notifier"},
    {"DocumentWriteOnDiskComplete", "AI Document Write On Disk Complete Notifier",
     &SGlobals::diskWritingCompleteNotifier, "...adding DocumentWriteOnDiskComplete notifier"},
};

void AcquireBlocksSuite(SPBlocksSuite*& blocks)
{
    try {
        AcquireSuite(kBlocksSuiteName, kBlocksSuiteVersion, &blocks);
    } catch (int) {
        OutputIndentedAndFormattedString(0, "EXCEPTION: AIErr from AcquireSuite(kSPBlocksSuite)");
        throw;
    }
}

void AllocateGlobals(SPInterfaceMessage* message, SPBlocksSuite* blocks)
{
    void* block = nullptr;
    ThrowAIErr(blocks->AllocateBlock(sizeof(SGlobals), "globals", &block));
    gGlobals = static_cast<SGlobals*>(block);
    message->d.globals = gGlobals;
    // The host doesn't clear the block. The string comes first because an undone startup deletes
    // it.
    gGlobals->globalsString = nullptr;
    gGlobals->fileFormatHandle = nullptr;
    gGlobals->reserved[1] = nullptr;
    gGlobals->reserved[2] = nullptr;
    gGlobals->pluginRef = message->d.self;
    gGlobals->globalsVersion = kGlobalsVersion;
    for (const NotifierRow& row : kNotifiers) gGlobals->*row.field = nullptr;
    gGlobals->timerHandle = nullptr;
    gGlobals->globalsString = new std::string;
}

// Holds the blocks suite during startup. Unless Keep was called, an exception is ending the
// startup: the destructor then stops the timer and frees the globals record. What else the host
// registered remains registered; TypeloftSPEA answers its messages without doing anything.
class StartedPlugin {
public:
    explicit StartedPlugin(SPInterfaceMessage* message) : mMessage(message) {}
    StartedPlugin(const StartedPlugin&) = delete;
    StartedPlugin& operator=(const StartedPlugin&) = delete;
    ~StartedPlugin()
    {
        if (!mIsKept) Undo();
        DropExceptions([this] { ReleaseBlocks(); });
    }

    void Keep() { mIsKept = true; }
    void ReleaseBlocks() { ReleaseSuite(kBlocksSuiteName, kBlocksSuiteVersion, &blocks); }

    SPBlocksSuite* blocks = nullptr;

private:
    void Undo()
    {
        SGlobals* const globals = gGlobals;
        mMessage->d.globals = nullptr;
        if (globals == nullptr) return;
        try {
            // A timer that can't be stopped is ignored like the rest.
            if (globals->timerHandle != nullptr) (void)RemoveTimers();
            if (blocks == nullptr) AcquireBlocksSuite(blocks);
            delete globals->globalsString;
            (void)blocks->FreeBlock(globals);
        } catch (...) {
            // The block remains the host's. The exception that ended the startup is the one that
            // is reported.
            gGlobals = nullptr;
        }
        gGlobals = nullptr;
    }

    SPInterfaceMessage* mMessage;
    bool mIsKept = false;
};

void RegisterWithHost(SPInterfaceMessage* message, SPBlocksSuite*& blocks)
{
    AcquireBlocksSuite(blocks);
    AllocateGlobals(message, blocks);
    // Without its menus the plug-in doesn't follow documents. If a notifier is refused, the plug-in
    // runs with those it got.
    if (AddAllCorvantaMenuItems(message) == 0) (void)AddNotifiers(message);
    // AddFileFormat always returns 0.
    (void)AddFileFormat(message);
    SetupIllustratorDialogSuppression(IsPluginEnabled());
}

void AddAllNotifiers(SPInterfaceMessage* message, AINotifierSuite*& notifiers)
{
    OutputIndentedAndFormattedString(0, "...acquiring notifier suite");
    AcquireSuite(kNotifierSuiteName, kNotifierSuiteVersion, &notifiers);
    for (const NotifierRow& row : kNotifiers) {
        OutputIndentedAndFormattedString(0, "%s", row.trace);
        ThrowAIErr(
            notifiers->AddNotifier(message->d.self, row.name, row.type, &(gGlobals->*row.field)));
    }
}

}  // namespace

AIErr StartupPlugin(SPInterfaceMessage* message)
{
    return HandleMessage("StartupPlugin", message, [message] {
        AIErr result = kHostSuccess;
        PCILoader* const core = PCILoader::GetSharedInstance();
        if (core->pfInitializePluginCoreInterface(kBundleIdentifier, kHostVersion) != 0) {
            return result;
        }
        StartedPlugin started(message);
        // If PluginCore refuses the callback, the library submenu is never rebuilt.
        (void)core->pfSetRebuildWorkgroupsMenuCallback(RebuildWorkgroupsMenu);
        try {
            RegisterWithHost(message, started.blocks);
        } catch (int error) {
            OutputIndentedAndFormattedString(0, "StartupPlugin, after catching an error\n");
            result = error;
        }
        started.ReleaseBlocks();
        // Without the timer only idle calls and the panel are missing.
        if (result == kHostSuccess) (void)AddTimers(message);
        started.Keep();
        return result;
    });
}

AIErr AddNotifiers(SPInterfaceMessage* message)
{
    return HandleMessage("AddNotifiers", message, [message] {
        AIErr result = kHostSuccess;
        AINotifierSuite* notifiers = nullptr;
        try {
            AddAllNotifiers(message, notifiers);
        } catch (int error) {
            OutputIndentedAndFormattedString(0, "...exception caught while adding notifiers");
            result = error;
        }
        ReleaseSuite(kNotifierSuiteName, kNotifierSuiteVersion, &notifiers);
        return result;
    });
}

AIErr ShutdownPlugin(SPInterfaceMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(0, "Entering %s", "ShutdownPlugin");
    if (gGlobals == nullptr) return kHostSuccess;

    AIErr result = kHostSuccess;
    SPBlocksSuite* blocks = nullptr;
    try {
        result =
            static_cast<AIErr>(PCILoader::GetSharedInstance()->pfTerminatePluginCoreInterface());
        delete gGlobals->globalsString;
        gGlobals->globalsString = nullptr;
        SetupIllustratorDialogSuppression(false);
        OutputIndentedAndFormattedString(0, "Calling RemoveTimers from ShutdownPlugin.");
        // If the timer can't be stopped, it ends with the host.
        (void)RemoveTimers();
        // A suite that the host refuses to take back isn't released later either.
        (void)ReleaseSuites();
        AcquireSuite(kBlocksSuiteName, kBlocksSuiteVersion, &blocks);
        ThrowAIErr(blocks->FreeBlock(gGlobals));
    } catch (int error) {
        result = error;
    }
    gGlobals = nullptr;
    message->d.globals = nullptr;
    ReleaseSuite(kBlocksSuiteName, kBlocksSuiteVersion, &blocks);
    return result;
}

AIErr AboutPlugin(SPInterfaceMessage* /*message*/)
{
    return TraceHandler("AboutPlugin", [] {
        PCILoader* const core = PCILoader::GetSharedInstance();
        if (core == nullptr || core->pfInvokeCommandDialog == nullptr) return kHostSuccess;
        std::string path;
        // Without a document the path is empty.
        (void)GetDocumentFileSpec(&path, false);
        char buffer[kDialogBufferSize] = {};
        bool flag = false;
        return static_cast<AIErr>(core->pfInvokeCommandDialog(path.c_str(), buffer, &flag));
    });
}
