#include "Documents.h"

#include <filesystem>

#include "Suites.h"

namespace wrong {

namespace {

Document* Find(void* handle)
{
    for (Document& document : life.documents) {
        if (document.handle == handle) return &document;
    }
    return nullptr;
}

std::string GetCurrentPath()
{
    const Suite<AIDocumentSuite> documents("AI Document Suite", 1017);
    Word path(DisposePath);
    Expect("GetDocumentFileSpecification",
           documents->GetDocumentFileSpecification(path.As<ai::FilePath>()));
    return ReadPath(path.Get());
}

// Of the current document, which is the one that the host saves.
Document* FindCurrent()
{
    const Suite<AIDocumentSuite> documents("AI Document Suite", 1017);
    _t_AIDocument* current = nullptr;
    Expect("GetDocument", documents->GetDocument(&current));
    return Find(current);
}

void ReadFileFacts(Document& document)
{
    document.path = GetCurrentPath();
    std::error_code ignored;  // a new document has no file
    document.fileSize = std::filesystem::file_size(document.path, ignored);
}

void Open(void* handle, bool isNew)
{
    if (handle == nullptr || Find(handle) != nullptr) return;
    Document added;
    added.handle = handle;
    added.isNew = isNew;
    life.documents.push_back(added);
    life.document = &life.documents.back();
    ++life.opened;
    if (!isNew) life.checked.clear();
    UseString();
    UseBlock();
    ReadFileFacts(*life.document);
    Walk();
    Tell(isNew ? Moment::kNew : Moment::kOpened);
    if (!isNew) life.sawDialog = false;
}

void Change(void* handle)
{
    life.document = Find(handle);
    if (life.document != nullptr) life.document->isChanged = true;
    Walk();
    Tell(Moment::kChanged);
}

void Save(Moment moment)
{
    life.document = nullptr;
    if (!life.documents.empty()) life.document = FindCurrent();
    if (life.document != nullptr) ReadFileFacts(*life.document);
    Tell(moment);
    if (life.document == nullptr) return;
    life.document->isChanged = false;
    life.document->wasSaved = true;
}

void Close(void* handle)
{
    life.document = Find(handle);
    ++life.closedInARow;
    Tell(Moment::kClosed);
    if (life.document == nullptr) return;
    life.documents.erase(life.documents.begin() + (life.document - life.documents.data()));
    life.document = nullptr;
}

}  // namespace

void HandleNotifier(const char* type, void* document)
{
    const std::string name = type == nullptr ? "" : type;
    const bool isAboutClosing = name == "AI Document Closed Notifier" ||
                                name == "AI Document About To Close Notifier" ||
                                name == "AI Menu Changed Notifier";
    if (!isAboutClosing && name != "AI Application Shutdown Notifier") life.closedInARow = 0;
    if (name == "AI Document Opened Notifier") Open(document, false);
    if (name == "AI Document New Notifier") Open(document, true);
    if (name == "AI Document Changed Notifier") Change(document);
    if (name == "AI Document Closed Notifier") Close(document);
    if (name == "AI Command Notifier: After Save") Save(Moment::kSaved);
    if (name == "AI Command Notifier: After Save As") Save(Moment::kSavedAs);
    if (name == "AI Font List Changed Notifier") Tell(Moment::kFonts);
    if (name == "AI Document About To Close Notifier") {
        life.document = Find(document);
        Tell(Moment::kAboutToClose);
        if (life.document != nullptr) life.document->isClosing = true;
    }
}

void HandleCheck(void* path)
{
    const std::string text = ReadPath(path);
    if (text.empty()) return;
    life.checked = text;
    ++life.checks;
    Tell(Moment::kCheck);
}

}  // namespace wrong
