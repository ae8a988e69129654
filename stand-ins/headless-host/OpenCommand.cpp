#include "OpenCommand.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "Application.h"
#include "ExitStatus.h"
#include "Report.h"
#include "System.h"

namespace headless {

namespace {

void Tell(const std::string& text)
{
    // Standard error is the last resort: a failure to write there can be told nobody.
    (void)std::fprintf(stderr, "headless-host: %s\n", MakePrintable(text).c_str());
}

// Every path is made absolute before the current folder changes.
bool SetUp(Options& options, std::string& error)
{
    const std::string program = GetProgramFolder();
    options.plugin = options.plugin.empty() ? program + "/../Plug-ins/TypeloftSPEA.aip"
                                            : MakeAbsolute(options.plugin);
    options.pluginCore = options.pluginCore.empty() ? program + "/../Vexcor/PluginFiles"
                                                    : MakeAbsolute(options.pluginCore);
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

// The progress line on a terminal when there are many files.
class Progress {
public:
    explicit Progress(size_t total)
        : mTotal(total), mWanted(total > kFew && IsTerminal(STDERR_FILENO))
    {
    }
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(size_t number, const std::string& path) const
    {
        // A progress line that doesn't get out is no loss.
        if (mWanted) {
            (void)std::fprintf(stderr, "\r\033[K%zu of %zu  %s", number, mTotal,
                               MakePrintable(path).c_str());
        }
    }
    void Clear() const
    {
        if (mWanted) (void)std::fputs("\r\033[K", stderr);
    }

private:
    static constexpr size_t kFew = 5;
    const size_t mTotal;
    const bool mWanted;
};

int OpenAll(Application& application, const Options& options, const std::vector<std::string>& paths,
            const std::string& startFolder)
{
    int status = kAllOpened;
    const Progress progress(paths.size());
    for (size_t i = 0; i < paths.size() && !IsInterrupted(); ++i) {
        progress.Show(i + 1, options.files[i]);
        const OpenReport report = application.Open(paths[i], options.files[i]);
        progress.Clear();
        const std::string text =
            options.json ? WriteReportAsJson(report) + "\n" : WriteReportAsTable(report);
        if (std::fputs(text.c_str(), stdout) < 0 || std::fflush(stdout) != 0) {
            Tell("standard output can't be written");
            return std::max<int>(status, kFileNotOpened);
        }
        if (report.dialog == DialogOutcome::kShown) {
            Tell(options.files[i] + ": the dialog \"" + report.dialogTitle + "\" was shown");
        }
        if (!report.opened) {
            Tell(options.files[i] + ": " + report.error);
            status = std::max<int>(status, kFileNotOpened);
            continue;
        }
        if (report.HasMissingFont()) status = std::max<int>(status, kFontMissing);
        if (options.command.empty()) continue;
        SetEnvironment("DOCUMENT", paths[i]);
        const int result = RunCommand(options.command, startFolder, options.json);
        if (result != 0) Tell("the command ended with status " + std::to_string(result));
    }
    if (options.hold > 0) Hold(options.hold);
    return status;
}

}  // namespace

int RunOpenCommand(Options options)
{
    std::vector<std::string> paths;
    for (const std::string& file : options.files) paths.push_back(MakeAbsolute(file));
    const std::string startFolder = MakeAbsolute(".");
    std::string error;
    if (!SetUp(options, error)) {
        Tell(error);
        return kWrongUse;
    }
    SystemFonts fonts;
    Host host(fonts, [](const std::string& path) { return documents::OpenDocument(path); });
    if (!options.journal.empty() && !host.journal.Open(options.journal, error)) {
        Tell(error);
        return kWrongUse;
    }
    host.errors.SetSink([&host](const std::string& line) {
        host.journal.Write("host", "plug-in error", nlohmann::json::object(), line);
        Tell("plug-in error: " + line);
    });
    host.alertSink = [](const Alert& alert) {
        Tell("alert: " + alert.message +
             (alert.information.empty() ? std::string() : " (" + alert.information + ")"));
    };
    CatchInterrupts();

    int status = kAllOpened;
    Application application(host, options.language);
    // A folder that isn't there means that PluginCore isn't either; the plug-in tells of it.
    if (!ChangeFolder(options.pluginCore, error)) Tell("PluginCore: " + error);
    if (application.Start(options.plugin, error)) {
        status = OpenAll(application, options, paths, startFolder);
    } else {
        Tell(error);
        status = kPluginNotLoaded;
    }
    application.ShutDown();
    if (host.errors.Count() > 0) {
        status = std::max<int>(status, kPluginBrokeRule);
        if (host.errors.Count() > host.errors.Lines().size()) {
            Tell("plug-in errors in all: " + std::to_string(host.errors.Count()));
        }
    }
    return IsInterrupted() ? kInterrupted : status;
}

}  // namespace headless
