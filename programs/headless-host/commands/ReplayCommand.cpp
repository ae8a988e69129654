#include "commands/ReplayCommand.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "application/ExitStatus.h"
#include "application/HostPlatformTable.h"
#include "application/RunningHost.h"
#include "base/JsonText.h"
#include "console/Console.h"
#include "replay/DifferenceReport.h"
#include "replay/Replay.h"
#include "simulation/SimulatedWorld.h"
#include "system/Interrupts.h"
#include "system/Paths.h"
#include "system/TemporaryFolder.h"

namespace headless {

namespace {

// A new journal, which takes the place of the file `target` when it is complete.
class NewJournal {
public:
    explicit NewJournal(const std::string& target)
        : mTarget(target), mDraft(target.empty() ? target : target + ".new")
    {
    }
    ~NewJournal()
    {
        if (mIsOpen) (void)unlink(mDraft.c_str());  // half a journal
    }
    NewJournal(const NewJournal&) = delete;
    NewJournal& operator=(const NewJournal&) = delete;

    bool Open(Host& host, nlohmann::json header, std::string& error)
    {
        if (mTarget.empty()) return true;
        if (!host.journal.Open(mDraft, error)) return false;
        mIsOpen = true;
        host.journal.WriteHeader(std::move(header));
        return true;
    }

    // Returns "", or one line about what is wrong.
    std::string Finish(const Host& host)
    {
        if (!mIsOpen || !host.journal.GetError().empty()) return host.journal.GetError();
        if (std::rename(mDraft.c_str(), mTarget.c_str()) != 0) {
            return mTarget + ": " + std::strerror(errno);
        }
        mIsOpen = false;
        return {};
    }

private:
    const std::string mTarget;
    const std::string mDraft;
    bool mIsOpen = false;
};

void ReportAsJson(const std::string& name, const Replay& replay, size_t cutLine)
{
    nlohmann::ordered_json report;
    report["journal"] = name;
    report["equal"] = !replay.GetDifference().has_value();
    report["lines"] = replay.GetPlayedLines();
    if (cutLine != 0) report["cutLine"] = cutLine;
    if (const auto& difference = replay.GetDifference()) {
        report["line"] = difference->line;
        report["where"] = difference->where;
        report["recorded"] = difference->expected;
        report["now"] = difference->came;
    }
    (void)console::Print(base::PrintJson(report) + "\n");  // Print reports its own failure
}

int Report(const Options& options, const Replay& replay, const JournalReader& journal)
{
    const std::string& name = options.session;
    if (options.json) {
        ReportAsJson(name, replay, journal.GetCutLine());
    } else if (!replay.GetDifference()) {
        (void)console::Print(name + ": " + std::to_string(replay.GetPlayedLines()) + " lines " +
                             (options.update.empty() ? "are equal\n" : "written\n"));
    }
    if (const auto& difference = replay.GetDifference()) {
        console::PrintErrorLines(
            name + ": line " + std::to_string(difference->line) + ": not what was recorded" +
                (difference->where.empty() ? "" : " (" + difference->where + ")"),
            WriteDifference(*difference));
        return kNotAsExpected;
    }
    if (journal.GetCutLine() != 0) {
        console::PrintError(name + ": line " + std::to_string(journal.GetCutLine()) +
                            ": is cut off; played up to there");
    }
    std::string error = replay.GetError().empty() ? "" : name + ": " + replay.GetError();
    if (error.empty()) error = journal.GetError();
    if (error.empty()) return kAllOpened;
    console::PrintError(error);
    return kFileNotOpened;
}

}  // namespace

int RunReplayCommand(const Options& options)
{
    std::string error;
    JournalReader journal;
    if (!journal.Open(options.session, error)) {
        console::PrintError(error);
        return kFileNotOpened;
    }
    const std::string plugin = ChoosePlugin(options.plugin);
    NewJournal newJournal(options.update.empty() ? "" : MakeAbsolute(options.update));
    const std::string frameworks =
        options.frameworks.empty() ? FindFrameworks() : MakeAbsolute(options.frameworks);
    const TemporaryFolder folder;
    SimulatedWorld world(folder.GetPath());
    ReplayFonts fonts;
    Host host(fonts, [](const std::string&) { return documents::OpenResult{}; });
    CatchInterrupts();
    if (!newJournal.Open(host, journal.GetHeader().args, error)) {
        console::PrintError(error);
        return kFileNotOpened;
    }
    const std::string files = folder.GetPath() + "/files/";
    host.journal.LeaveOut(files);
    ResetHostPlatform();
    const bool hasFrameworks = journal.GetHeader().args.value("frameworks", false);
    SetPrivateFrameworks(hasFrameworks ? frameworks : "");
    int status = kAllOpened;
    {
        Replay replay(host, fonts, journal, {files, frameworks}, options.update.empty());
        world.core.SetAnswerer(
            [&replay](const std::string& function, const nlohmann::json& arguments,
                      HostAnswer& answer) { replay.AnswerCore(function, arguments, answer); });
        if (!replay.Load(plugin, error)) {
            console::PrintError(error);
            return kPluginNotLoaded;
        }
        replay.Play();
        status = Report(options, replay, journal);
        world.core.SetAnswerer({});
    }
    if (IsInterrupted()) return kInterrupted;
    if (status != kAllOpened) return status;
    error = newJournal.Finish(host);
    if (error.empty()) return status;
    console::PrintError(error);
    return std::max<int>(status, kFileNotOpened);
}

}  // namespace headless
