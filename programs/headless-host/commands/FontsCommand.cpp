#include "commands/FontsCommand.h"

#include <new>
#include <unordered_set>
#include <utility>

#include "application/ExitStatus.h"
#include "batch/Interrupts.h"
#include "batch/OrderedReading.h"
#include "commands/FontsReport.h"
#include "console/Console.h"

namespace headless {

namespace {

// Reads one file, in a worker. Returns its report as JSON.
std::string ReadOne(const std::string& path, double seconds, size_t helperBytes)
{
    documents::Limits limits;
    limits.seconds = seconds;
    limits.helperBytes = helperBytes;
    const documents::OpenResult result = documents::OpenDocument(path, limits);
    if (!result.ok && result.error == batch::kNoMemoryError) throw std::bad_alloc();
    return WriteFontsReportAsJson(MakeFontsReport(path, result));
}

FontsReport MakeFailure(const batch::FileAnswer& answer)
{
    FontsReport report;
    report.path = answer.path;
    report.kind = documents::GetKindName(documents::Kind::kUnknown);
    report.error = answer.error;
    return report;
}

// One run of the subcommand.
class FontsJob {
public:
    explicit FontsJob(const Options& options) : mOptions(options) {}

    int Run()
    {
        batch::CatchInterrupts();
        batch::FileChoice choice;
        choice.paths = mOptions.files;
        choice.isRecursive = mOptions.recursive;
        batch::FileWalk walk(std::move(choice));
        batch::ReadingLimits limits;
        limits.seconds = mOptions.timeout;
        const bool isWhole = batch::ReadInOrder(
            walk, limits,
            [this](const std::string& path, size_t helperBytes) {
                return ReadOne(path, mOptions.timeout, helperBytes);
            },
            [this](const batch::FileAnswer& answer) {
                PrintReport(answer.error.empty() ? ReadFontsReport(answer.text)
                                                 : MakeFailure(answer));
            },
            batch::IsInterrupted);
        return isWhole ? mStatus : kInterrupted;
    }

private:
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
    std::unordered_set<std::string> mNames;
    int mStatus = kAllOpened;
};

}  // namespace

int RunFontsCommand(const Options& options) { return FontsJob(options).Run(); }

}  // namespace headless
