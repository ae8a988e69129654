#include "application/Application.h"

#include <algorithm>
#include <chrono>

#include "HostPlatform_Linux.h"
#include "application/HostPlatformTable.h"
#include "application/MissingFontsDialog.h"
#include "base/Files.h"
#include "console/Log.h"
#include "system/Interrupts.h"

namespace headless {

namespace {

// A reader that throws must not end the program: other files are still to be opened.
documents::OpenResult Read(const Host& host, const std::string& path)
{
    try {
        return host.reader(path);
    } catch (const std::exception& exception) {
        return {false, {}, exception.what()};
    }
}

// Looks among the fonts that were active at the last refresh.
bool IsAnyMissing(const std::vector<documents::DocumentFont>& fonts, const HostFonts& known)
{
    return std::any_of(fonts.begin(), fonts.end(), [&](const documents::DocumentFont& font) {
        return known.GetActiveNames().count(known.Match(font.postScriptName)) == 0;
    });
}

}  // namespace

Application::Application(Host& host, std::string language)
    : mHost(host), mLanguage(std::move(language))
{
    ResetHostPlatform();
}

Application::~Application() { ShutDown(); }

bool Application::Start(const std::string& pluginPath, std::string& error)
{
    mModule = PluginModule::Load(pluginPath, error);
    if (!mModule) return false;
    auto plugin = std::make_shared<PluginObject>(PluginObject{mModule->GetPath()});
    mHost.plugin = mHost.handles.Issue(std::move(plugin));
    mPump = std::make_unique<MessagePump>(mHost, mModule->GetMain());
    mDocuments = std::make_unique<DocumentCommands>(mHost, *mPump);
    const AIErr result = mPump->SendInterface("Startup");
    mRunning = result == kHostSuccess && mHost.globalsWord != nullptr;
    if (!mRunning) {
        // The plug-in acquires suites with its first message and gets no occasion to release them.
        mHost.suites.AllowUnreleased(true);
        error = "the plug-in does not run: ";
        if (!mHost.alerts.empty()) {
            error += mHost.alerts.back().message;
        } else if (result != kHostSuccess) {
            error += "Startup returned " + std::to_string(result);
        } else {
            error += "PluginCore refused to start";
        }
        return false;
    }
    mPump->Notify("AI Application Started Notifier", nullptr);
    mPump->NotifyMenuChanges();
    return true;
}

DialogOutcome RunMissingFontsDialog(Host& host, const std::string& language, long windowNumber,
                                    std::string& title)
{
    host.journal.Write("world", "dialog", {{"language", language}, {"window", windowNumber}},
                       nullptr);
    MissingFontsDialog dialog(host.journal, language, windowNumber);
    title = dialog.GetTitle();
    const unsigned long before = GetModalSessionCount();
    const ModalSession session = GetHostPlatform()->beginModalSession(&dialog);
    if (GetModalSessionCount() == before) {
        host.violations.Add(kSessionNotBegun,
                            "beginModalSession: the host's own session was not begun");
    } else if (session != &dialog) {
        host.violations.Add(kSessionNotReturned,
                            "beginModalSession: the session of the host was not handed back");
    }
    return dialog.WasShown() ? DialogOutcome::kShown : DialogOutcome::kDismissed;
}

OpenReport Application::Open(const std::string& path, const std::string& givenPath)
{
    const auto start = std::chrono::steady_clock::now();
    OpenReport report;
    report.path = givenPath;
    const auto finish = [&] {
        report.elapsedMs = static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(
                                                 std::chrono::steady_clock::now() - start)
                                                 .count());
        return report;
    };

    const std::set<std::string> activeBefore = mHost.fonts.RefreshActiveNames();
    // File formats are only asked to check regular files.
    if (base::IsReadableFile(path)) {
        mDocuments->RecordFile(path);
        mPump->SendCheck(path);
    }
    documents::OpenResult read = Read(mHost, path);
    mHost.journal.Write("host", "read", {{"path", path}}, read.ok ? "" : read.error);
    report.kind = documents::GetKindName(read.document.kind);
    if (!read.ok) {
        report.error = read.error.empty() ? "cannot be read" : read.error;
        return finish();
    }

    const std::vector<documents::DocumentFont> fonts = documents::GetAllFonts(read.document);
    report.opened = true;
    report.reader = read.document.reader;
    report.note = documents::JoinNotes(read.document);
    report.frames = read.document.frames.size();
    for (const documents::TextFrame& frame : read.document.frames) report.runs += frame.runs.size();
    report.linkedDocuments = read.document.linkedFiles;

    (void)mHost.fonts.RefreshActiveNames();  // read by IsAnyMissing
    const bool isAnyMissing = IsAnyMissing(fonts, mHost.fonts);
    if (isAnyMissing) {
        report.dialog =
            RunMissingFontsDialog(mHost, mLanguage, ++mWindowNumber, report.dialogTitle);
    }
    DocumentObject* const document = mHost.AddDocument(std::move(read.document), path);
    console::LogAction("opened " + path);
    document->isBeingOpened = true;
    mPump->Notify("AI Document Opened Notifier", document->handle);
    if (document->tookTooLong) {
        mDocuments->Close(document);
        report.opened = false;
        report.error = TextWalkLimit::Describe();
        return finish();
    }
    document->isBeingOpened = false;

    // The plug-in may have activated fonts in the dialog and in the notifier.
    if (isAnyMissing) (void)mHost.fonts.RefreshActiveNames();  // read by GetFontState
    document->activeBefore = activeBefore;
    for (const documents::DocumentFont& font : fonts) {
        const FontState state = mDocuments->GetFontState(*document, font.postScriptName);
        report.fonts.push_back({font.postScriptName, state, font.isListed});
    }
    mPump->NotifyMenuChanges();
    return finish();
}

void Application::UpdateMenus()
{
    constexpr int32_t kWantsUpdate = 1;                // option bit of a menu item
    const std::vector<void*> items = mHost.menuItems;  // a message may add and remove items
    for (void* const handle : items) {
        const auto* const item = mHost.handles.Peek<MenuItemObject>(handle);
        if (item == nullptr || (item->options & kWantsUpdate) == 0) continue;
        (void)mPump->SendMenu("AI Update", handle);  // a host ignores the result
    }
    mPump->NotifyMenuChanges();
}

void Application::Choose(void* menuItem)
{
    (void)mPump->SendMenu("AI Go", menuItem);  // a host ignores the result
    mPump->NotifyMenuChanges();
}

void Application::ShowAbout()
{
    (void)mPump->SendInterface("About");  // a host ignores the result
}

void Application::NotifyFontsChanged()
{
    (void)mHost.fonts.RefreshActiveNames();  // read by GetFontState
    mPump->Notify("AI Font List Changed Notifier", nullptr);
}

void Application::Tick()
{
    mPump->SendTimers(++mTick);
    mPump->NotifyMenuChanges();
}

void Application::Idle(double seconds)
{
    IdleFor(seconds, kTicksPerSecond, [this] { Tick(); });
}

void Application::ShutDown()
{
    if (!mPump) return;
    while (!mHost.GetDocuments().empty()) {
        mDocuments->Close(mHost.GetDocuments().front().get());
    }
    if (mRunning) {
        mPump->Notify("AI Application Shutdown Notifier", nullptr);
        mHost.suites.AllowUnreleased(false);
    }
    // The journal holds the result, which changes nothing.
    (void)mPump->SendInterface("Shutdown");
    mHost.suites.AllowUnreleased(false);
    const AIErr unloaded = mPump->SendUnload();
    mDocuments.reset();
    mPump.reset();
    FinishUnload(mHost, std::move(mModule), unloaded);
}

void FinishUnload(Host& host, std::unique_ptr<PluginModule> module, AIErr unloaded)
{
    if (unloaded != kHostSuccess) {
        host.violations.Add(kRefusesUnload,
                            "Unload: the plug-in refuses to be unloaded after its shutdown");
        module->LeaveLoaded();
    }
    for (const std::string& line : host.suites.ListLeaks()) {
        host.violations.Add(kSuiteLeaked, "Unload: " + line);
    }
    for (const std::string& line : host.handles.ListLeaks()) {
        host.violations.Add(kReferenceLeaked, "Unload: " + line);
    }
    ResetHostPlatform();
    module.reset();
    host.journal.Write("host", "unloaded", nlohmann::json::object(), nullptr);
}

}  // namespace headless
