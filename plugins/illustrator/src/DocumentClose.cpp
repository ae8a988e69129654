#include <string>

#include "CorvantaFileUtils.h"
#include "DebugUtils.h"
#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "FileFormatHook.h"
#include "IllustratorUtilities.h"
#include "PCILoader.h"
#include "TraceArguments.h"

namespace {

constexpr size_t kUsageSize = 32767;

// A document that never had a path: what is current after the close is reported in its place.
std::string CloseDocumentWithoutPath(PCILoader* core)
{
    // One byte more than is copied, so that a usage that fills it ends.
    char buffer[kUsageSize + 1] = {};
    std::string usage = CurrentDocumentFontUsage();
    if (!usage.empty()) {
        usage.copy(buffer, kUsageSize);
        int value = 0;
        // The document is gone: nothing follows from the status.
        (void)core->pfActivateChosenFonts("", buffer, &value);
    }
    return usage;
}

std::string CloseDocumentWithPath(PCILoader* core, _t_AIDocument* document, std::string path)
{
    ReplaceBareName(document, path);
    std::string usage;
    if (path.empty()) return usage;
    const long stored = GetTimestampForDocumentHandle(document);
    const long current = CorvantaFileUtils::GetFileModificationDate(path.c_str());
    if (stored < current) {
        usage = GetFontUsageForDocumentHandle(document);
        // The document is gone: nothing follows from either status.
        (void)core->pfHandleSaveDocument(path.c_str(), usage.c_str());
    }
    (void)core->pfHandleCloseDocument(path.c_str(), usage.c_str());
    return usage;
}

}  // namespace

AIErr HandleDocumentAboutToCloseNotifier(AINotifierMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s(message->notifyData = 0x%08x)",
                                     "HandleDocumentAboutToCloseNotifier",
                                     TracePointer(message->notifyData));
    bool enabled = false;
    // Only the answer counts.
    (void)PCILoader::GetSharedInstance()->pfPluginIsEnabled(true, &enabled);
    if (enabled) {
        auto* const document = static_cast<_t_AIDocument*>(message->notifyData);
        // Only the current document can be walked.
        if (document == GetCurrentDocument()) {
            SetFontUsageForDocumentHandle(document, CurrentDocumentFontUsage());
        }
    }
    OutputIndentedAndFormattedString(-1, "%s returning %d", "HandleDocumentAboutToCloseNotifier",
                                     kHostSuccess);
    return kHostSuccess;
}

AIErr HandleDocumentClosedNotifier(AINotifierMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s(message->notifyData = 0x%08x)",
                                     "HandleDocumentClosedNotifier",
                                     TracePointer(message->notifyData));
    auto* const document = static_cast<_t_AIDocument*>(message->notifyData);
    PCILoader* const core = PCILoader::GetSharedInstance();
    std::string usage;
    bool enabled = false;
    // Only the answer counts.
    (void)core->pfPluginIsEnabled(true, &enabled);
    if (enabled) {
        const std::string path = GetFilePathForDocumentHandle(document);
        usage = path.empty() ? CloseDocumentWithoutPath(core)
                             : CloseDocumentWithPath(core, document, path);
    }
    const std::string templatePath = GetTemplatePathForDocumentHandle(document);
    // Forgotten before the search, which must not find the closing document itself.
    ForgetAboutDocumentHandle(document);
    if (!templatePath.empty() && GetDocumentHandleForTemplatePath(templatePath) == nullptr) {
        // Goes out for a disabled plug-in, too; the document is gone, so nothing follows from it.
        (void)core->pfHandleCloseDocument(templatePath.c_str(), usage.c_str());
    }
    OutputIndentedAndFormattedString(-1, "%s returning %d", "HandleDocumentClosedNotifier",
                                     kHostSuccess);
    return kHostSuccess;
}
