#include "model/Host.h"

#include <algorithm>
#include <stdexcept>

#include "ArtTypes.h"
#include "base/Utf8.h"
#include "model/DocumentJson.h"

namespace headless {

namespace {

Host* sCurrent = nullptr;

}  // namespace

Host::Host(FontSource& fontSource, DocumentReader documentReader)
    : recordedFonts(fontSource, journal),
      fonts(recordedFonts, handles),
      reader(std::move(documentReader))
{
    if (sCurrent != nullptr) throw std::logic_error("a host exists already");
    sCurrent = this;
    violations.SetSink([this](const std::string& line) {
        journal.Write("host", "plug-in error", nlohmann::json::object(), line);
    });
}

Host::~Host() { sCurrent = nullptr; }

void Host::BeginCall(const char* name)
{
    if (beforeCall) beforeCall(name);
    if (duringCalls.empty()) return;
    for (auto found = duringCalls.find(name); found != duringCalls.end();
         found = duringCalls.find(name)) {
        const std::function<void()> act = std::move(found->second);
        duringCalls.erase(found);  // it may call the same operation
        act();
    }
}

bool Host::TakeFailure(const char* operation, const char* call, AIErr& status,
                       std::string& exceptionType)
{
    if (const Fault* const fault = suiteFaults.CountCall(call)) {
        status = fault->exceptionType.empty() ? fault->status : kHostBadParameter;
        exceptionType = fault->exceptionType;
        return true;
    }
    if (failures.empty()) return false;
    const auto failure = failures.find(operation);
    if (failure == failures.end()) return false;
    status = failure->second;
    suiteFaults.NoteFailedCall(call, status);
    failures.erase(failure);
    return true;
}

Host* Host::GetCurrent() { return sCurrent; }

void Host::Record(const char* change, const void* handle, nlohmann::json args)
{
    if (!journal.IsOpen()) return;
    args["handle"] = handles.Describe(handle);
    journal.Write("world", change, args, nullptr);
}

DocumentObject* Host::AddDocument(documents::Document content, const std::string& path)
{
    const auto document = std::make_shared<DocumentObject>();
    document->content = std::move(content);
    document->hasFile = !path.empty() && !document->content.isTemplate;
    document->path = document->hasFile ? path : "Untitled-" + std::to_string(++mUntitledCount);
    document->handle = handles.Issue(document);
    document->source = path;
    const documents::Document& kept = document->content;
    for (size_t i = 0; i < kept.frames.size(); ++i) AddArt(*document, kTextFrameArt, i);
    for (size_t i = 0; i < kept.linkedFiles.size(); ++i) AddArt(*document, kPlacedArt, i);
    mDocuments.push_back(document);
    mRecent.push_back(document.get());
    if (journal.IsOpen()) {
        Record("document added", document->handle,
               {{"path", path}, {"content", WriteContent(kept)}});
    }
    return document.get();
}

void Host::AddArt(DocumentObject& document, int16_t type, size_t index)
{
    auto art = std::make_shared<ArtItem>(ArtItem{&document, type, index});
    document.art.push_back(handles.Issue(std::move(art), document.handle));
}

void Host::AddText(DocumentObject& document, const documents::AddedText& text)
{
    documents::Document& content = document.content;
    const std::vector<documents::TextRun> runs = {
        {text.postScriptName, base::CountCharacters(text.words)}};
    content.frames.push_back({content.stories.size(), runs});
    content.stories.push_back({runs});
    std::vector<std::string>& names = content.fonts;
    if (std::find(names.begin(), names.end(), text.postScriptName) == names.end()) {
        names.push_back(text.postScriptName);
    }
    document.addedTexts.push_back(text);
    AddArt(document, kTextFrameArt, content.frames.size() - 1);
    Record("text added", document.handle, {{"font", text.postScriptName}, {"words", text.words}});
}

void Host::AddLink(DocumentObject& document, const std::string& path)
{
    document.content.linkedFiles.push_back(path);
    document.addedLinks.push_back(path);
    AddArt(document, kPlacedArt, document.content.linkedFiles.size() - 1);
    Record("file placed", document.handle, {{"path", path}});
}

void Host::MarkChanged(DocumentObject& document)
{
    document.isModified = true;
    Record("document changed", document.handle, nlohmann::json::object());
}

void Host::MarkSaved(DocumentObject& document, const std::string& path)
{
    document.source = path;
    document.path = path;
    document.hasFile = true;
    document.isModified = false;
    document.addedTexts.clear();
    document.addedLinks.clear();
    Record("document saved", document.handle, {{"path", path}});
}

void* Host::AddPath(const std::string& path)
{
    void* const handle = handles.Issue(std::make_shared<PathObject>(PathObject{path}));
    handles.KeepForHost(handle);
    Record("path added", handle, {{"path", path}});
    return handle;
}

void Host::RemovePath(void* handle)
{
    Record("path removed", handle, nlohmann::json::object());
    handles.Expire(handle);
}

void Host::MakeCurrent(DocumentObject* document)
{
    const auto place = std::find(mRecent.begin(), mRecent.end(), document);
    if (place == mRecent.end()) return;
    std::rotate(place, place + 1, mRecent.end());
    Record("document made current", document->handle, nlohmann::json::object());
}

void Host::RemoveDocument(DocumentObject* document)
{
    const auto place =
        std::find_if(mDocuments.begin(), mDocuments.end(),
                     [document](const auto& each) { return each.get() == document; });
    if (place == mDocuments.end()) return;
    const std::shared_ptr<DocumentObject> kept = *place;
    mDocuments.erase(place);
    mRecent.erase(std::remove(mRecent.begin(), mRecent.end(), document), mRecent.end());
    Record("document removed", kept->handle, nlohmann::json::object());
    handles.Expire(kept->handle);
}

}  // namespace headless
