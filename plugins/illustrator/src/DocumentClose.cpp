#include "DocumentClose.h"

#include <string>

#include "CorvantaFileUtils.h"
#include "CurrentDocument.h"
#include "DocumentRegistry.h"
#include "HandlerTrace.h"
#include "IllustratorUtilities.h"
#include "PCILoader.h"

namespace {

constexpr size_t kUsageSize = 32767;

// For a document that never had a path: reports the usage of the document that is current after the
// close. Returns that usage.
std::string CloseDocumentWithoutPath(PCILoader* core)
{
    // One byte more than is copied, so that the text is always terminated.
    char buffer[kUsageSize + 1] = {};
    std::string usage = CurrentDocumentFontUsage();
    if (!usage.empty()) {
        usage.copy(buffer, kUsageSize);
        int value = 0;
        // The document is gone, whatever PluginCore's status is.
        (void)core->pfActivateChosenFonts("", buffer, &value);
    }
    return usage;
}

// Reports the close, after a save if the file is newer than at the open. Returns the usage that it
// reported, which is empty without a save.
std::string CloseDocumentWithPath(PCILoader* core, _t_AIDocument* document, std::string path)
{
    ReplaceBareName(document, path);
    std::string usage;
    if (path.empty()) return usage;
    const long stored = GetTimestampForDocumentHandle(document);
    const long current = CorvantaFileUtils::GetFileModificationDate(path.c_str());
    if (stored < current) {
        usage = GetFontUsageForDocumentHandle(document);
        // The document is gone, whatever PluginCore's status is, here and below.
        (void)core->pfHandleSaveDocument(path.c_str(), usage.c_str());
    }
    (void)core->pfHandleCloseDocument(path.c_str(), usage.c_str());
    return usage;
}

std::string ReportClosedDocument(PCILoader* core, _t_AIDocument* document)
{
    const std::string path = GetFilePathForDocumentHandle(document);
    return path.empty() ? CloseDocumentWithoutPath(core)
                        : CloseDocumentWithPath(core, document, path);
}

}  // namespace

AIErr HandleDocumentAboutToCloseNotifier(AINotifierMessage* message)
{
    return HandleDocumentMessage("HandleDocumentAboutToCloseNotifier", message, [message] {
        if (!IsPluginEnabled()) return kHostSuccess;
        auto* const document = static_cast<_t_AIDocument*>(message->notifyData);
        // Only the current document can be examined.
        if (document == GetCurrentDocument()) {
            SetFontUsageForDocumentHandle(document, CurrentDocumentFontUsage());
        }
        return kHostSuccess;
    });
}

AIErr HandleDocumentClosedNotifier(AINotifierMessage* message)
{
    return HandleDocumentMessage("HandleDocumentClosedNotifier", message, [message] {
        auto* const document = static_cast<_t_AIDocument*>(message->notifyData);
        PCILoader* const core = PCILoader::GetSharedInstance();
        std::string usage;
        if (IsPluginEnabled()) usage = ReportClosedDocument(core, document);
        const std::string templatePath = GetTemplatePathForDocumentHandle(document);
        // Before the search below, which must not find the document that is closing.
        ForgetAboutDocumentHandle(document);
        if (!templatePath.empty() && GetDocumentHandleForTemplatePath(templatePath) == nullptr) {
            // Also for a disabled plug-in. The document is gone, whatever PluginCore's status is.
            (void)core->pfHandleCloseDocument(templatePath.c_str(), usage.c_str());
        }
        return kHostSuccess;
    });
}
