#include "AIFilePath.h"
#include "suites/SuiteCall.h"
#include "suites/SuiteTable.h"
#include "suites/SuiteTables.h"

// The suites for the current document and for file paths.
namespace headless {

namespace {

const SuiteRow& kDocumentSuite = *FindSuiteRow("AI Document Suite");
const SuiteRow& kFilePathSuite = *FindSuiteRow("AI File Path Suite");

AIErr GetDocumentFileSpecification(ai::FilePath& file)
{
    return Answer(kDocumentSuite, "GetDocumentFileSpecification", [&](SuiteCall& call) {
        const DocumentObject* const document = call.host.GetCurrentDocument();
        if (document == nullptr) return kHostBadParameter;
        if (GetHandle(file) != nullptr) {
            // An invalid handle is recorded as a violation, then overwritten.
            (void)call.host.handles.Release(GetHandle(file), HandleType::kPath, call.operation);
        }
        SetHandle(file, call.host.handles.Issue(
                            std::make_shared<PathObject>(PathObject{document->path})));
        call.OutHandle("file", GetHandle(file));
        return kHostSuccess;
    });
}

AIErr GetDocumentModified(bool* modified)
{
    return Answer(kDocumentSuite, "GetDocumentModified", [&](SuiteCall& call) {
        const DocumentObject* const document = call.host.GetCurrentDocument();
        if (!call.Require(modified, "modified") || document == nullptr) return kHostBadParameter;
        *modified = document->isModified;
        call.Out("modified", *modified);
        return kHostSuccess;
    });
}

AIErr GetDocument(_t_AIDocument** document)
{
    return Answer(kDocumentSuite, "GetDocument", [&](SuiteCall& call) {
        const DocumentObject* const current = call.host.GetCurrentDocument();
        if (!call.Require(document, "document") || current == nullptr) return kHostBadParameter;
        *document = static_cast<_t_AIDocument*>(current->handle);
        call.OutHandle("document", *document);
        return kHostSuccess;
    });
}

AIErr DisposeFilePath(ai::FilePath* path)
{
    return Answer(kFilePathSuite, "DisposeFilePath", [&](SuiteCall& call) {
        if (!call.Require(path, "path")) return kHostBadParameter;
        call.Handle("path", GetHandle(*path));
        if (!call.host.handles.Release(GetHandle(*path), HandleType::kPath, call.operation)) {
            return kHostBadParameter;
        }
        SetHandle(*path, nullptr);
        return kHostSuccess;
    });
}

AIErr GivePathText(const char* operation, const ai::FilePath& path, bool displayForm,
                   ai::UnicodeString& text, bool nameOnly)
{
    return Answer(kFilePathSuite, operation, [&](SuiteCall& call) {
        call.Handle("path", GetHandle(path));
        call.Arg("displayForm", displayForm);
        const auto* const found = call.Find<PathObject>(GetHandle(path));
        if (found == nullptr) return kHostBadParameter;
        std::string result = found->path;
        const size_t slash = result.rfind('/');
        if (nameOnly && slash != std::string::npos) result.erase(0, slash + 1);
        PutString(call, text, result);
        call.Out("text", result);
        return kHostSuccess;
    });
}

AIErr GetFileName(const ai::FilePath& path, bool displayForm, ai::UnicodeString& name)
{
    return GivePathText("GetFileName", path, displayForm, name, true);
}

AIErr GetFullPath(const ai::FilePath& path, bool displayForm, ai::UnicodeString& fullPath)
{
    return GivePathText("GetFullPath", path, displayForm, fullPath, false);
}

}  // namespace

const AIDocumentSuite kDocumentTable = {GetDocumentFileSpecification, GetDocumentModified,
                                        GetDocument};
const AIFilePathSuite kFilePathTable = {DisposeFilePath, GetFileName, GetFullPath};

}  // namespace headless
