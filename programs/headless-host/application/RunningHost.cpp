#include "application/RunningHost.h"

#include <algorithm>

#include "application/ExitStatus.h"
#include "application/HostPlatformTable.h"
#include "application/LaunchInformation.h"
#include "application/OpenReport.h"
#include "console/Console.h"
#include "console/Log.h"
#include "documents/write/DraftRecord.h"
#include "system/Environment.h"
#include "system/Interrupts.h"
#include "system/Paths.h"
#include "system/Process.h"

namespace headless {

namespace {

// The plug-in's alert when it finds no PluginCore.
constexpr char kMissingPluginCore[] = "Missing PluginCore";

// Sets `error` if the folder that `option` names cannot be listed. Returns whether it can.
bool CheckFolder(const std::string& option, const std::string& folder, std::string& error)
{
    const std::string reason = GetListError(folder);
    if (!reason.empty()) error = option + ": " + folder + ": " + reason;
    return reason.empty();
}

// The folders as PluginCore reads them: separated by colons, with a backslash before each colon and
// backslash of a name.
std::string JoinFolders(const std::vector<std::string>& folders)
{
    std::string text;
    for (const std::string& folder : folders) {
        if (!text.empty()) text += ':';
        for (const char c : MakeAbsolute(folder)) {
            if (c == ':' || c == '\\') text += '\\';
            text += c;
        }
    }
    return text;
}

// The path that the user gave, or the default one in the installation of this program.
std::string Choose(const std::string& given, const std::string& fallback)
{
    return given.empty() ? GetProgramFolder() + "/../" + fallback : MakeAbsolute(given);
}

bool SetUp(Options& options, std::string& error)
{
    if (!options.frameworks.empty() &&
        !CheckFolder("--frameworks", MakeAbsolute(options.frameworks), error)) {
        return false;
    }
    options.plugin = ChoosePlugin(options.plugin);
    options.frameworks = MakeAbsolute(Choose(options.frameworks, "Frameworks"));
    if (!IsFolder(options.frameworks)) options.frameworks.clear();
    if (!options.journal.empty()) options.journal = MakeAbsolute(options.journal);
    if (!options.home.empty() && !UseHome(MakeAbsolute(options.home), error)) return false;
    if (!options.libraries.empty()) {
        SetEnvironment("CORVANTA_FONT_LIBRARY", JoinFolders(options.libraries));
    }
    if (options.interactive) SetEnvironment("CORVANTA_INTERACTIVE", "1");
    return true;
}

void ReportViolationsAndAlerts(Host& host)
{
    host.violations.SetSink([&host](const std::string& line) {
        host.journal.Write("host", "plug-in error", nlohmann::json::object(), line);
        console::PrintError("plug-in error: " + line);
    });
    host.alertSink = [](const Alert& alert) {
        const std::string title = "alert: " + alert.message;
        if (alert.information.find('\n') != std::string::npos) {
            console::PrintErrorLines(title, alert.information);
        } else {
            console::PrintError(title + (alert.information.empty()
                                             ? std::string()
                                             : " (" + alert.information + ")"));
        }
    };
}

}  // namespace

std::string ChoosePlugin(const std::string& given)
{
    return Choose(given, "Plug-ins/TypeloftSPEA.aip");
}

int RunHost(const Options& given, const std::function<int(RunningHost&)>& body)
{
    Options options = given;
    const std::string startFolder = MakeAbsolute(".");
    std::string error;
    if ((!options.log.empty() && !console::OpenLog(MakeAbsolute(options.log), error)) ||
        !SetUp(options, error)) {
        console::PrintError(error);
        return kWrongUse;
    }
    SystemFonts fonts;
    Host host(fonts, [](const std::string& path) { return documents::OpenDocument(path); });
    if (!options.journal.empty() && !host.journal.Open(options.journal, error)) {
        console::PrintError(error);
        return kWrongUse;
    }
    if (!options.journal.empty()) {
        host.journal.WriteHeader({{"host", "headless-host " HEADLESS_HOST_VERSION},
                                  {"language", options.language},
                                  {"frameworks", !options.frameworks.empty()}});
    }
    ReportViolationsAndAlerts(host);
    host.walkLimit.sink = [](const DocumentObject& document) {
        // The report of the opening says it itself.
        if (document.isBeingOpened) return;
        console::PrintError(document.path + ": " + TextWalkLimit::Describe() +
                            "; not all of its fonts are known");
    };
    CatchInterrupts();
    const std::string problem = fonts.GetProblem();
    if (!problem.empty()) console::PrintError(problem);

    for (const std::string& path : documents::DeleteAbandonedDrafts(GetDraftRecordFolder())) {
        console::PrintError(path + ": deleted; a save that was killed left it");
    }

    int status = kAllOpened;
    Application application(host, options.language);
    SetPrivateFrameworks(options.frameworks);
    const std::string launchInformation = ProvideLaunchInformation();
    if (!launchInformation.empty()) console::PrintError(launchInformation + ": created");
    if (application.Start(options.plugin, error)) {
        console::LogAction("started with " + options.plugin);
        RunningHost running{host, application, options, startFolder, nullptr, {}};
        status = body(running);
        if (options.keepOpen > 0) application.Idle(options.keepOpen);
    } else {
        console::PrintError(error);
        if (error.find(kMissingPluginCore) != std::string::npos) {
            console::PrintError("hint: run 'Vexcor install' once");
        }
        status = kPluginNotLoaded;
    }
    application.ShutDown();
    console::LogAction("ends");
    if (!host.journal.GetError().empty()) {
        console::PrintError(host.journal.GetError());
        status = std::max<int>(status, kFileNotOpened);
    }
    if (host.violations.Count() > 0) {
        status = std::max<int>(status, kPluginBrokeRule);
        if (host.violations.Count() > host.violations.Lines().size()) {
            console::PrintError("plug-in errors: " + std::to_string(host.violations.Count()) +
                                " in all");
        }
    }
    return IsInterrupted() ? kInterrupted : status;
}

int OpenFile(RunningHost& running, const std::string& givenPath, OpenReport& report)
{
    const std::string path = MakeAbsolute(running.startFolder, givenPath);
    report = running.application.Open(path, givenPath);
    if (!console::Print(running.options.json ? WriteReportAsJson(report) + "\n"
                                             : WriteReportAsTable(report))) {
        return kFileNotOpened;
    }
    if (report.dialog == DialogOutcome::kShown) {
        console::PrintError(givenPath + ": the dialog \"" + report.dialogTitle + "\" was shown");
    }
    if (!report.opened) {
        console::PrintError(givenPath + ": " + report.error);
        return kFileNotOpened;
    }
    if (!running.options.command.empty()) {
        SetEnvironment("DOCUMENT", path);
        const int result =
            RunCommand(running.options.command, running.startFolder, running.options.json);
        if (result != 0) {
            console::PrintError("--exec: the command ended with status " + std::to_string(result));
        }
    }
    return report.HasMissingFont() ? kFontMissing : kAllOpened;
}

}  // namespace headless
