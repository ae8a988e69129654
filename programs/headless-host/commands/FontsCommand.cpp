#include "commands/FontsCommand.h"

#include <algorithm>
#include <new>
#include <unordered_set>
#include <utility>

#include "application/ExitStatus.h"
#include "base/Progress.h"
#include "commands/FileList.h"
#include "commands/FontsReport.h"
#include "console/Console.h"
#include "system/Interrupts.h"
#include "system/WorkerPool.h"

namespace headless {

namespace {

// The memory of all workers: 1 GiB less what this process needs.
constexpr size_t kMemoryBytes = (size_t{1024} - 64) << 20;
constexpr size_t kMostWorkers = 8;
constexpr size_t kLeastFilesForProgress = 2;
constexpr char kNoMemory[] = "too large: not enough memory";

// Each worker can run one Ghostscript, which gets the remaining fifth of its share.
size_t GetWorkerMemory(size_t workers) { return kMemoryBytes / workers / 5 * 4; }

// Reads one file, in a worker. Returns its report as JSON. Throws std::bad_alloc if the file needs
// more memory than the worker has.
std::string ReadOne(const std::string& path, double seconds, size_t helperBytes)
{
    documents::Limits limits;
    limits.seconds = seconds;
    limits.helperBytes = helperBytes;
    const documents::OpenResult result = documents::OpenDocument(path, limits);
    if (!result.ok && result.error == kNoMemory) throw std::bad_alloc();
    return WriteFontsReportAsJson(MakeFontsReport(path, result));
}

std::string GetSecondsText(double seconds)
{
    std::string text = std::to_string(seconds);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
}

// One run of the subcommand.
class FontsJob {
public:
    explicit FontsJob(const Options& options)
        : mOptions(options),
          mFiles(ListFiles(options.files, options.recursive)),
          mReports(mFiles.size()),
          mIsDone(mFiles.size()),
          mProgress(mFiles.size(), kLeastFilesForProgress)
    {
    }

    int Run()
    {
        CatchInterrupts();
        std::vector<size_t> wanted;
        for (size_t i = 0; i < mFiles.size(); ++i) {
            if (mFiles[i].error.empty()) {
                wanted.push_back(i);
            } else {
                Finish(i, MakeFailure(i, mFiles[i].error));
            }
        }
        const size_t workers =
            std::clamp<size_t>(std::min(wanted.size(), GetCoreCount()), 1, kMostWorkers);
        bool isWhole = ReadAll(wanted, workers, wanted.size() > 1);
        // A file that was too large beside others gets all the memory.
        if (isWhole && !mTooLarge.empty()) {
            isWhole = ReadAll(std::exchange(mTooLarge, {}), 1, false);
        }
        mProgress.Clear();
        return isWhole ? mStatus : kInterrupted;
    }

private:
    FontsReport MakeFailure(size_t index, const std::string& error) const
    {
        FontsReport report;
        report.path = mFiles[index].path;
        report.kind = documents::GetKindName(documents::Kind::kUnknown);
        report.error = error;
        return report;
    }

    // Reads the files with these indexes in workers. Returns false if an interrupt ended it.
    bool ReadAll(const std::vector<size_t>& wanted, size_t workers, bool triesAgain)
    {
        WorkerLimits limits;
        limits.workers = workers;
        limits.memoryBytes = GetWorkerMemory(workers);
        limits.seconds = mOptions.timeout;
        const size_t helperBytes = limits.memoryBytes / 4;
        return RunInWorkers(
            wanted.size(), limits,
            [&](size_t i) {
                return ReadOne(mFiles[wanted[i]].path, mOptions.timeout, helperBytes);
            },
            [&](size_t i, WorkerAnswer answer) {
                const size_t index = wanted[i];
                // The abort of a process can be a failed allocation where none may fail.
                const bool mayLackMemory = answer.outcome == WorkerAnswer::Outcome::kNoMemory ||
                                           answer.outcome == WorkerAnswer::Outcome::kDied;
                if (triesAgain && mayLackMemory) {
                    mTooLarge.push_back(index);
                } else {
                    Finish(index, TakeAnswer(index, std::move(answer)));
                }
            },
            IsInterrupted);
    }

    FontsReport TakeAnswer(size_t index, WorkerAnswer answer) const
    {
        switch (answer.outcome) {
            case WorkerAnswer::Outcome::kAnswered:
                return ReadFontsReport(answer.text);
            case WorkerAnswer::Outcome::kTooLong:
                return MakeFailure(
                    index, "takes longer than " + GetSecondsText(mOptions.timeout) + " s to read");
            case WorkerAnswer::Outcome::kNoMemory:
                return MakeFailure(index, kNoMemory);
            case WorkerAnswer::Outcome::kDied:
                break;
        }
        return MakeFailure(index, "the process that read it " + answer.text);
    }

    // Stores the report of a file, and prints those that are next in the order of the files.
    void Finish(size_t index, FontsReport report)
    {
        mReports[index] = std::move(report);
        mIsDone[index] = true;
        ++mDoneCount;
        if (mNext < mFiles.size() && mIsDone[mNext]) mProgress.Clear();
        for (; mNext < mFiles.size() && mIsDone[mNext]; ++mNext) {
            PrintReport(mReports[mNext]);
            mReports[mNext] = {};
        }
        mProgress.Show(mDoneCount, mFiles[index].path);
    }

    void PrintReport(const FontsReport& report)
    {
        std::string text;
        if (mOptions.json) {
            text = WriteFontsReportAsJson(report) + "\n";
        } else if (mOptions.names) {
            for (const documents::DocumentFont& font : report.fonts) {
                const std::string& name = font.postScriptName;
                if (mNames.insert(name).second) text += console::MakePrintable(name) + "\n";
            }
        } else {
            text = WriteFontsReportAsTable(report);
        }
        if (!report.isRead && (mOptions.json || mOptions.names)) {
            console::PrintError(report.path + ": " + report.error);
        }
        const bool isPrinted = text.empty() || console::Print(text);
        if (!report.isRead || !isPrinted) mStatus = kFileNotOpened;
    }

    const Options& mOptions;
    std::vector<ListedFile> mFiles;
    std::vector<FontsReport> mReports;
    std::vector<bool> mIsDone;
    std::vector<size_t> mTooLarge;
    std::unordered_set<std::string> mNames;
    size_t mNext = 0;
    size_t mDoneCount = 0;
    int mStatus = kAllOpened;
    base::Progress mProgress;
};

}  // namespace

int RunFontsCommand(const Options& options) { return FontsJob(options).Run(); }

}  // namespace headless
