#include "CurrentDocument.h"

#include "DocumentRegistry.h"
#include "PCILoader.h"

namespace {

constexpr char kSeparators[] = "/\\";

bool HasSeparator(const std::string& path)
{
    return path.find_first_of(kSeparators) != std::string::npos;
}

}  // namespace

_t_AIDocument* GetCurrentDocument()
{
    _t_AIDocument* document = nullptr;
    // On an error the host leaves the handle null, which callers test.
    if (gDocumentSuite != nullptr) (void)gDocumentSuite->GetDocument(&document);
    return document;
}

AIErr GetDocumentFileSpec(std::string* out, bool fileNameOnly)
{
    if (gDocumentSuite == nullptr) return kHostBadParameter;
    ai::FilePath path;
    const AIErr status = gDocumentSuite->GetDocumentFileSpecification(path);
    // The result only repeats that `out` is empty, which callers test.
    if (status == kHostSuccess) (void)GetAIPathAsUTF8String(path, *out, fileNameOnly);
    return status;
}

AIErr GetAIPathAsUTF8String(const ai::FilePath& filePath, std::string& out, bool fileNameOnly)
{
    out = (fileNameOnly ? filePath.GetFileName(false) : filePath.GetFullPath(false)).as_UTF8();
    return out.empty() ? -1 : kHostSuccess;
}

void ReplaceBareName(_t_AIDocument* document, std::string& path)
{
    if (path.empty() || HasSeparator(path)) return;
    if (GetDocumentFileSpec(&path, false) != kHostSuccess || !HasSeparator(path)) return;
    SetFilePathForDocumentHandle(document, path);
}

bool IsPluginEnabled()
{
    bool enabled = false;
    // The status isn't needed: without an answer `enabled` is false.
    (void)PCILoader::GetSharedInstance()->pfPluginIsEnabled(true, &enabled);
    return enabled;
}
