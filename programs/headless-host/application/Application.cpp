#include "application/Application.h"

#include <algorithm>
#include <chrono>

#include "application/HostPlatformTable.h"
#include "application/MissingFontsDialog.h"
#include "console/Log.h"
#include "system/System.h"

namespace headless {

namespace {

// The host's own reading of the file, guarded: whatever happens, the other files go on.
documents::OpenResult Read(const Host& host, const std::string& path)
{
    try {
        return host.reader(path);
    } catch (const std::exception& exception) {
        return {false, {}, exception.what()};
    }
}

std::set<std::string> FindMissing(const std::vector<std::string>& names,
                                  const std::set<std::string>& active)
{
    std::set<std::string> missing;
    for (const std::string& name : names) {
        if (active.count(name) == 0) missing.insert(name);
    }
    return missing;
}

}  // namespace

bool OpenReport::HasMissingFont() const
{
    return std::any_of(fonts.begin(), fonts.end(),
                       [](const FontReport& font) { return font.state == FontState::kMissing; });
}

Application::~Application() { ShutDown(); }

bool Application::Start(const std::string& pluginPath, std::string& error)
{
    mModule = PluginModule::Load(pluginPath, error);
    if (!mModule) return false;
    auto plugin = std::make_shared<PluginObject>(PluginObject{mModule->GetPath()});
    mHost.plugin = mHost.handles.Issue(std::move(plugin));
    mPump = std::make_unique<MessagePump>(mHost, mModule->GetMain());
    const AIErr result = mPump->SendInterface("Startup");
    mRunning = result == kHostSuccess && mHost.globalsWord != nullptr;
    if (!mRunning) {
        // A guest that doesn't run has no occasion to release what came with the first message.
        mHost.suites.AllowUnreleased(true);
        error = "the plug-in doesn't run: ";
        if (!mHost.alerts.empty()) {
            error += mHost.alerts.back().message;
        } else if (result != kHostSuccess) {
            error += "startup answered " + std::to_string(result);
        } else {
            error += "PluginCore refused to start";
        }
        return false;
    }
    Notify("AI Application Started Notifier", nullptr);
    TellMenuChanges();
    return true;
}

DialogOutcome Application::RunMissingFontsDialog(std::string& title)
{
    MissingFontsDialog dialog(mLanguage, ++mWindowNumber);
    title = dialog.GetTitle();
    const unsigned long before = GetModalSessionCount();
    const ModalSession session = GetHostPlatform()->beginModalSession(&dialog);
    if (GetModalSessionCount() == before) {
        mHost.violations.Add("beginModalSession: the host's own session was not begun");
    } else if (session != &dialog) {
        mHost.violations.Add("beginModalSession: the session of the host was not handed back");
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
    // The file formats are asked about files only, whatever is in them.
    if (IsReadableFile(path)) mPump->SendCheck(path);
    documents::OpenResult read = Read(mHost, path);
    mHost.journal.Write("host", "read", {{"path", path}}, read.ok ? "" : read.error);
    report.kind = documents::GetKindName(read.document.kind);
    if (!read.ok) {
        report.error = read.error.empty() ? "can't be read" : read.error;
        return finish();
    }

    const std::vector<std::string> names = read.document.fonts;
    report.opened = true;
    report.reader = read.document.reader;
    report.note = documents::JoinNotes(read.document);
    report.frames = read.document.frames.size();
    for (const documents::TextFrame& frame : read.document.frames) report.runs += frame.runs.size();
    report.linkedDocuments = read.document.linkedFiles;

    const std::set<std::string> atReading = FindMissing(names, mHost.fonts.RefreshActiveNames());
    if (!atReading.empty()) report.dialog = RunMissingFontsDialog(report.dialogTitle);
    DocumentObject* const document = mHost.AddDocument(std::move(read.document), path);
    console::LogAction("opened " + path);
    Notify("AI Document Opened Notifier", document->handle);

    // The guest was told of the fonts once more and may have found others by now.
    if (!atReading.empty()) (void)mHost.fonts.RefreshActiveNames();  // used below
    document->activeBefore = activeBefore;
    for (const std::string& name : names) {
        report.fonts.push_back({name, GetFontState(*document, name)});
    }
    TellMenuChanges();
    return finish();
}

void Application::ShutDown()
{
    if (!mPump) return;
    while (!mHost.GetDocuments().empty()) Close(mHost.GetDocuments().front().get());
    if (mRunning) {
        Notify("AI Application Shutdown Notifier", nullptr);
        mHost.suites.AllowUnreleased(false);
    }
    // What the guest answers to its end changes nothing; it stands in the journal.
    (void)mPump->SendInterface("Shutdown");
    mHost.suites.AllowUnreleased(false);
    if (mPump->SendUnload() != kHostSuccess) {
        mHost.violations.Add("Unload: the plug-in refuses to be unloaded after its shutdown");
        mModule->LeaveLoaded();
    }
    for (const std::string& line : mHost.suites.ListLeaks())
        mHost.violations.Add("Unload: " + line);
    for (const std::string& line : mHost.handles.ListLeaks())
        mHost.violations.Add("Unload: " + line);
    ResetHostPlatform();
    mPump.reset();
    mModule.reset();
    mHost.journal.Write("host", "unloaded", nlohmann::json::object(), nullptr);
}

}  // namespace headless
