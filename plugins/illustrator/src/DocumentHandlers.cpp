#include "DocumentHandlers.h"

#include <string>

#include "CorvantaFileUtils.h"
#include "CrossPluginUtils.h"
#include "CurrentDocument.h"
#include "DocumentRegistry.h"
#include "FileFormatHook.h"
#include "GJSONUtils.h"
#include "HandlerTrace.h"
#include "PCILoader.h"
#include "SuppressionPeriod.h"

namespace {

constexpr size_t kDocumentIdSize = 256;

// Records the document and returns the path of the file that it was made from. A document without a
// file of its own is an untitled copy of a template, whose path the check of the file stored under
// the null handle.
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
    return HandleDocumentMessage("HandleDocumentOpenedNotifier", message, [message] {
        json fonts = CollectUsedFonts();
        const GJSONScope scope(fonts);
        std::string path;
        if (GetDocumentFileSpec(&path, false) == kHostSuccess) {
            auto* const document = static_cast<_t_AIDocument*>(message->notifyData);
            HandleCheckFileFormat(RecordOpenedDocument(document, path), fonts);
        }
        if (GetSuppressionOfMissingFontsDialog()) CrossPluginUtils::BackgroundForegroundApp();
        return kHostSuccess;
    });
}

AIErr HandleDocumentNewNotifier(AINotifierMessage* message)
{
    return HandleDocumentMessage("HandleDocumentNewNotifier", message, [] {
        if (IsPluginEnabled()) {
            char id[kDocumentIdSize] = {};
            size_t size = sizeof id;
            // The plug-in doesn't use the id, and a failure changes nothing here.
            (void)PCILoader::GetSharedInstance()->pfHandleCreateNewDocument(id, &size);
        }
        CrossPluginUtils::BackgroundForegroundApp();
        return kHostSuccess;
    });
}
