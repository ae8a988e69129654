#include "application/Application.h"
#include "application/SaveDocument.h"
#include "console/Log.h"
#include "system/System.h"

// What the host does while it runs: documents that change, menus, time.
namespace headless {

void Application::Notify(const char* type, void* notifyData)
{
    (void)mPump->SendNotifier(type, notifyData);  // nobody need listen
}

void Application::TellMenuChanges()
{
    if (mHost.menuChanges == mToldMenuChanges) return;
    mToldMenuChanges = mHost.menuChanges;
    Notify("AI Menu Changed Notifier", nullptr);
}

DocumentObject* Application::New()
{
    DocumentObject* const document = mHost.AddDocument({}, "");
    document->activeBefore = mHost.fonts.RefreshActiveNames();
    Notify("AI Document New Notifier", document->handle);
    return document;
}

FontState Application::GetFontState(const DocumentObject& document,
                                    const std::string& postScriptName)
{
    if (mHost.fonts.GetActiveNames().count(postScriptName) == 0) return FontState::kMissing;
    if (mHost.fonts.IsDefault(postScriptName)) return FontState::kDefault;
    return document.activeBefore.count(postScriptName) == 0 ? FontState::kActivated
                                                            : FontState::kActive;
}

void Application::Change()
{
    DocumentObject* const document = mHost.GetCurrentDocument();
    document->isModified = true;
    (void)KeepBase(*document);  // a failure is told when it is saved
    Notify("AI Document Changed Notifier", document->handle);
}

void Application::AddText(const std::string& postScriptName, const std::string& words)
{
    mHost.AddText(*mHost.GetCurrentDocument(), {postScriptName, words});
    Change();
}

void Application::Place(const std::string& path)
{
    mHost.AddLink(*mHost.GetCurrentDocument(), path);
    Change();
}

void Application::TellSaved(const char* type)
{
    // A command's notifier has no document with it; the disk's notifier has.
    Notify(type, nullptr);
    if (DocumentObject* const document = mHost.GetCurrentDocument()) {
        Notify("AI Document Write On Disk Complete Notifier", document->handle);
    }
    TellMenuChanges();
}

std::string Application::Save()
{
    DocumentObject& document = *mHost.GetCurrentDocument();
    std::string error = SaveDocument(mHost, document, document.path);
    if (!error.empty()) return error;
    console::LogAction("saved " + document.path);
    TellSaved("AI Command Notifier: After Save");
    return {};
}

std::string Application::SaveAs(const std::string& path)
{
    std::string error = SaveDocument(mHost, *mHost.GetCurrentDocument(), path);
    if (!error.empty()) return error;
    console::LogAction("saved as " + path);
    TellSaved("AI Command Notifier: After Save As");
    return {};
}

void Application::Close(DocumentObject* document)
{
    void* const handle = document->handle;
    console::LogAction("closes " +
                       (document->path.empty() ? "a document without a file" : document->path));
    Notify("AI Document About To Close Notifier", handle);
    mHost.RemoveDocument(document);
    Notify("AI Document Closed Notifier", handle);
    TellMenuChanges();
}

void Application::UpdateMenus()
{
    constexpr int32_t kWantsUpdate = 1;
    const std::vector<void*> items = mHost.menuItems;
    for (void* const handle : items) {
        const auto* const item = mHost.handles.Peek<MenuItemObject>(handle);
        if (item == nullptr || (item->options & kWantsUpdate) == 0) continue;
        (void)mPump->SendMenu("AI Update", handle);  // nothing hangs on the answer
    }
    TellMenuChanges();
}

void Application::Choose(void* menuItem)
{
    (void)mPump->SendMenu("AI Go", menuItem);  // nothing hangs on the answer
    TellMenuChanges();
}

void Application::ShowAbout()
{
    (void)mPump->SendInterface("About");  // nothing hangs on the answer
}

void Application::TellFontsChanged()
{
    (void)mHost.fonts.RefreshActiveNames();  // seen by the next look at a font's state
    Notify("AI Font List Changed Notifier", nullptr);
}

void Application::Tick()
{
    mPump->SendTimers(++mTick);
    TellMenuChanges();
}

void Application::Idle(double seconds)
{
    IdleFor(seconds, kTicksPerSecond, [this] { Tick(); });
}

}  // namespace headless
