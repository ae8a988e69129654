#include "DocumentHandlers.h"

#include "CorvantaFileUtils.h"
#include "CrossPluginUtils.h"
#include "DebugUtils.h"
#include "DialogSuppression.h"
#include "DocumentRegistry.h"
#include "FileFormatHook.h"
#include "PCILoader.h"
#include "TraceArguments.h"

namespace {

constexpr size_t kDocumentIdSize = 256;

// Where the opened document really came from. One without a file of its own is an untitled copy of
// a template, whose path the check of the file has left under the null handle.
std::string RecordOpenedDocument(_t_AIDocument* document, const std::string& path)
{
    SetFilePathForDocumentHandle(document, path);
    const long timestamp = CorvantaFileUtils::GetFileModificationDate(path.c_str());
    SetTimestampForDocumentHandle(document, timestamp);
    if (timestamp != 0) return path;

    std::string templatePath = GetFilePathForDocumentHandle(nullptr);
    SetTemplatePathForDocumentHandle(document, templatePath);
    ForgetAboutDocumentHandle(nullptr);
    return templatePath;
}

}  // namespace

AIErr HandleDocumentOpenedNotifier(AINotifierMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s(message->notifyData = 0x%08x)",
                                     "HandleDocumentOpenedNotifier",
                                     TracePointer(message->notifyData));
    json fonts;
    try {
        // A text engine code leaves what was found until then, which is all that counts.
        (void)IterateUsedFonts(fonts);
    } catch (...) {
        OutputIndentedAndFormattedString(0, "No fonts found in document.");
    }

    std::string path;
    if (GetDocumentFileSpec(&path, false) == kHostSuccess) {
        auto* const document = static_cast<_t_AIDocument*>(message->notifyData);
        HandleCheckFileFormat(RecordOpenedDocument(document, path), fonts);
    }
    if (GetSuppressionOfMissingFontsDialog()) CrossPluginUtils::BackgroundForegroundApp();
    OutputIndentedAndFormattedString(-1, "%s returning %d", "HandleDocumentOpenedNotifier",
                                     kHostSuccess);
    return kHostSuccess;
}

AIErr HandleDocumentNewNotifier(AINotifierMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s(message->notifyData = 0x%08x)",
                                     "HandleDocumentNewNotifier",
                                     TracePointer(message->notifyData));
    PCILoader* const core = PCILoader::GetSharedInstance();
    bool enabled = false;
    // Only the answer counts.
    (void)core->pfPluginIsEnabled(true, &enabled);
    if (enabled) {
        char id[kDocumentIdSize] = {};
        size_t size = sizeof id;
        // PluginCore keeps the id for itself.
        (void)core->pfHandleCreateNewDocument(id, &size);
    }
    CrossPluginUtils::BackgroundForegroundApp();
    OutputIndentedAndFormattedString(-1, "%s returning %d", "HandleDocumentNewNotifier",
                                     kHostSuccess);
    return kHostSuccess;
}
