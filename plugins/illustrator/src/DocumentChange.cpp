#include <string>

#include "DebugUtils.h"
#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "FileFormatHook.h"
#include "IllustratorUtilities.h"
#include "PCILoader.h"
#include "PluginStartup.h"
#include "TraceArguments.h"
#include "TypeloftSPEA.h"

namespace {

constexpr char kSeparators[] = "/\\";

bool HasSeparator(const std::string& path)
{
    return path.find_first_of(kSeparators) != std::string::npos;
}

bool IsPluginEnabled()
{
    bool enabled = false;
    // Only the answer counts.
    (void)PCILoader::GetSharedInstance()->pfPluginIsEnabled(true, &enabled);
    return enabled;
}

void StoreUsageOfCurrentDocument()
{
    _t_AIDocument* const document = GetCurrentDocument();
    if (document == nullptr) return;
    std::string path = GetFilePathForDocumentHandle(document);
    ReplaceBareName(document, path);
    SetFontUsageForDocumentHandle(document, CurrentDocumentFontUsage());
}

void TraceSaveNotifier(AINotifierHandle notifier)
{
    if (gGlobals == nullptr) return;
    if (notifier == gGlobals->afterSaveNotifier) {
        OutputIndentedAndFormattedString(0, "...afterSaveNotifier");
    } else if (notifier == gGlobals->afterSaveAsNotifier) {
        OutputIndentedAndFormattedString(0, "...afterSaveAsNotifier");
    } else if (notifier == gGlobals->diskWritingCompleteNotifier) {
        OutputIndentedAndFormattedString(0, "...diskWritingCompleteNotifier");
    }
}

AIErr PassOnSavedDocument(AINotifierHandle notifier)
{
    const std::string usage = CurrentDocumentFontUsage();
    TraceSaveNotifier(notifier);
    bool isModified = false;
    // A host that can't tell counts as unmodified.
    if (gDocumentSuite != nullptr) (void)gDocumentSuite->GetDocumentModified(&isModified);
    if (isModified) return kHostSuccess;
    std::string path;
    const AIErr status = GetDocumentFileSpec(&path, false);
    if (status != kHostSuccess) return status;
    if (path.empty() || IsEPSVersion8(path)) return kHostSuccess;
    // The file is written; nothing follows from the status.
    (void)PCILoader::GetSharedInstance()->pfHandleSaveDocument(path.c_str(), usage.c_str());
    return kHostSuccess;
}

}  // namespace

void ReplaceBareName(_t_AIDocument* document, std::string& path)
{
    if (path.empty() || HasSeparator(path)) return;
    if (GetDocumentFileSpec(&path, false) != kHostSuccess || !HasSeparator(path)) return;
    SetFilePathForDocumentHandle(document, path);
}

AIErr HandleDocumentChangedNotifier(AINotifierMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s(message->notifyData = 0x%08x)",
                                     "HandleDocumentChangedNotifier",
                                     TracePointer(message->notifyData));
    if (IsPluginEnabled()) StoreUsageOfCurrentDocument();
    OutputIndentedAndFormattedString(-1, "%s returning %d", "HandleDocumentChangedNotifier",
                                     kHostSuccess);
    return kHostSuccess;
}

AIErr HandleDocumentSavedNotifier(AINotifierMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s(message->notifyData = 0x%08x)",
                                     "HandleDocumentSavedNotifier",
                                     TracePointer(message->notifyData));
    const AIErr result = IsPluginEnabled() ? PassOnSavedDocument(message->notifier) : kHostSuccess;
    OutputIndentedAndFormattedString(-1, "%s returning %d", "HandleDocumentSavedNotifier", result);
    return result;
}

AIErr HandleFontListChangedNotifier(AINotifierMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s", "HandleFontListChangedNotifier");
    OutputIndentedAndFormattedString(-1, "%s returning %d", "HandleFontListChangedNotifier",
                                     kHostSuccess);
    return kHostSuccess;
}
