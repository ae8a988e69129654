#include "application/DocumentCommands.h"

#include "application/SaveDocument.h"
#include "console/Log.h"

namespace headless {

DocumentObject* DocumentCommands::New()
{
    DocumentObject* const document = mHost.AddDocument({}, "");
    document->activeBefore = mHost.fonts.RefreshActiveNames();
    mPump.Notify("AI Document New Notifier", document->handle);
    return document;
}

FontState DocumentCommands::GetFontState(const DocumentObject& document,
                                         const std::string& postScriptName)
{
    const std::string name = mHost.fonts.Match(postScriptName);
    if (mHost.fonts.GetActiveNames().count(name) == 0) return FontState::kMissing;
    if (mHost.fonts.IsDefault(name)) return FontState::kDefault;
    return document.activeBefore.count(name) == 0 ? FontState::kActivated : FontState::kActive;
}

void DocumentCommands::Change()
{
    DocumentObject* const document = mHost.GetCurrentDocument();
    mHost.MarkChanged(*document);
    (void)KeepBase(*document);  // SaveDocument tries again and reports the failure
    mPump.Notify("AI Document Changed Notifier", document->handle);
}

void DocumentCommands::AddText(const std::string& postScriptName, const std::string& words)
{
    mHost.AddText(*mHost.GetCurrentDocument(), {postScriptName, words});
    Change();
}

void DocumentCommands::Place(const std::string& path)
{
    mHost.AddLink(*mHost.GetCurrentDocument(), path);
    Change();
}

void DocumentCommands::NotifySaved(const char* type)
{
    // Command notifiers carry no document; the "written on disk" notifier does.
    mPump.Notify(type, nullptr);
    if (DocumentObject* const document = mHost.GetCurrentDocument()) {
        mPump.Notify("AI Document Write On Disk Complete Notifier", document->handle);
    }
    mPump.NotifyMenuChanges();
}

std::string DocumentCommands::Save()
{
    DocumentObject& document = *mHost.GetCurrentDocument();
    std::string error = SaveDocument(mHost, document, document.path);
    if (!error.empty()) return error;
    console::LogAction("saved " + document.path);
    mFiles.Record(mHost.journal, document.path);
    NotifySaved("AI Command Notifier: After Save");
    return {};
}

std::string DocumentCommands::SaveAs(const std::string& path)
{
    std::string error = SaveDocument(mHost, *mHost.GetCurrentDocument(), path);
    if (!error.empty()) return error;
    console::LogAction("saved as " + path);
    mFiles.Record(mHost.journal, path);
    NotifySaved("AI Command Notifier: After Save As");
    return {};
}

void DocumentCommands::Close(DocumentObject* document)
{
    void* const handle = document->handle;
    console::LogAction("closes " +
                       (document->path.empty() ? "a document without a file" : document->path));
    if (document->hasFile) mFiles.Record(mHost.journal, document->path);
    mPump.Notify("AI Document About To Close Notifier", handle);
    mHost.RemoveDocument(document);
    mPump.Notify("AI Document Closed Notifier", handle);
    mPump.NotifyMenuChanges();
}

}  // namespace headless
