#include "DocumentChange.h"

#include <string>

#include "CurrentDocument.h"
#include "DebugUtils.h"
#include "DocumentRegistry.h"
#include "FileFormatHook.h"
#include "HandlerTrace.h"
#include "IllustratorUtilities.h"
#include "PCILoader.h"
#include "PluginGlobals.h"

namespace {

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
    // If the host fails, the document is taken as unmodified.
    if (gDocumentSuite != nullptr) (void)gDocumentSuite->GetDocumentModified(&isModified);
    if (isModified) return kHostSuccess;
    std::string path;
    const AIErr status = GetDocumentFileSpec(&path, false);
    if (status != kHostSuccess) return status;
    if (path.empty() || IsEPSVersion8(path)) return kHostSuccess;
    // The file is saved, whatever PluginCore's status is.
    (void)PCILoader::GetSharedInstance()->pfHandleSaveDocument(path.c_str(), usage.c_str());
    return kHostSuccess;
}

}  // namespace

AIErr HandleDocumentChangedNotifier(AINotifierMessage* message)
{
    return HandleDocumentMessage("HandleDocumentChangedNotifier", message, [] {
        if (IsPluginEnabled()) StoreUsageOfCurrentDocument();
        return kHostSuccess;
    });
}

AIErr HandleDocumentSavedNotifier(AINotifierMessage* message)
{
    return HandleDocumentMessage("HandleDocumentSavedNotifier", message, [message] {
        return IsPluginEnabled() ? PassOnSavedDocument(message->notifier) : kHostSuccess;
    });
}

AIErr HandleFontListChangedNotifier(AINotifierMessage* message)
{
    return HandleMessage("HandleFontListChangedNotifier", message, [] { return kHostSuccess; });
}
