#include "application/HostRun.h"

#include <algorithm>

#include "application/ExitStatus.h"
#include "application/HostPlatformTable.h"
#include "application/Report.h"
#include "console/Console.h"
#include "console/Log.h"
#include "system/System.h"

namespace headless {

namespace {

std::string Choose(const std::string& given, const std::string& fallback)
{
    return given.empty() ? GetProgramFolder() + "/../" + fallback : MakeAbsolute(given);
}

bool SetUp(Options& options, std::string& error)
{
    options.plugin = Choose(options.plugin, "Plug-ins/TypeloftSPEA.aip");
    options.frameworks = MakeAbsolute(Choose(options.frameworks, "Frameworks"));
    if (!IsFolder(options.frameworks)) options.frameworks.clear();
    if (!options.journal.empty()) options.journal = MakeAbsolute(options.journal);
    if (!options.home.empty() && !UseHome(MakeAbsolute(options.home), error)) return false;
    std::string libraries;
    for (const std::string& library : options.libraries) {
        libraries += (libraries.empty() ? "" : ":") + MakeAbsolute(library);
    }
    if (!libraries.empty()) SetEnvironment("CORVANTA_FONT_LIBRARY", libraries);
    if (options.interactive) SetEnvironment("CORVANTA_INTERACTIVE", "1");
    return true;
}

void TellErrorsAndAlerts(Host& host)
{
    host.errors.SetSink([&host](const std::string& line) {
        host.journal.Write("host", "plug-in error", nlohmann::json::object(), line);
        console::PrintError("plug-in error: " + line);
    });
    host.alertSink = [](const Alert& alert) {
        console::PrintError(
            "alert: " + alert.message +
            (alert.information.empty() ? std::string() : " (" + alert.information + ")"));
    };
}

}  // namespace

int RunHost(const Options& given, const std::function<int(HostRun&)>& body)
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
    TellErrorsAndAlerts(host);
    SetPrivateFrameworks(options.frameworks);
    CatchInterrupts();

    int status = kAllOpened;
    Application application(host, options.language);
    if (application.Start(options.plugin, error)) {
        console::LogAction("started with " + options.plugin);
        HostRun run{host, application, options, startFolder};
        status = body(run);
        if (options.keepOpen > 0) application.Idle(options.keepOpen);
    } else {
        console::PrintError(error);
        status = kPluginNotLoaded;
    }
    application.ShutDown();
    console::LogAction("ends");
    if (host.errors.Count() > 0) {
        status = std::max<int>(status, kPluginBrokeRule);
        if (host.errors.Count() > host.errors.Lines().size()) {
            console::PrintError("plug-in errors in all: " + std::to_string(host.errors.Count()));
        }
    }
    return IsInterrupted() ? kInterrupted : status;
}

int OpenFile(HostRun& run, const std::string& givenPath, OpenReport& last)
{
    const std::string path = MakeAbsolute(run.startFolder, givenPath);
    last = run.application.Open(path, givenPath);
    if (!console::Print(run.options.json ? WriteReportAsJson(last) + "\n"
                                         : WriteReportAsTable(last))) {
        return kFileNotOpened;
    }
    if (last.dialog == DialogOutcome::kShown) {
        console::PrintError(givenPath + ": the dialog \"" + last.dialogTitle + "\" was shown");
    }
    if (!last.opened) {
        console::PrintError(givenPath + ": " + last.error);
        return kFileNotOpened;
    }
    if (!run.options.command.empty()) {
        SetEnvironment("DOCUMENT", path);
        const int result = RunCommand(run.options.command, run.startFolder, run.options.json);
        if (result != 0)
            console::PrintError("the command ended with status " + std::to_string(result));
    }
    return last.HasMissingFont() ? kFontMissing : kAllOpened;
}

}  // namespace headless
