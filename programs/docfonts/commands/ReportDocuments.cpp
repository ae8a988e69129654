#include "docfonts/commands/ReportDocuments.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>

#include "batch/Interrupts.h"
#include "batch/OrderedReading.h"
#include "console/Console.h"
#include "docfonts/analysis/FontSearch.h"
#include "docfonts/analysis/ReadDocument.h"
#include "docfonts/commands/ExitStatus.h"
#include "docfonts/html/HtmlReport.h"
#include "docfonts/report/ReportJson.h"
#include "docfonts/report/ReportWords.h"
#include "docfonts/table/TableReport.h"

namespace docfonts {

namespace {

// One run of the program.
class Job {
public:
    explicit Job(const Options& options) : mOptions(options) {}

    int Run()
    {
        batch::CatchInterrupts();
        if (!mOptions.html.empty()) mPage.emplace(mOptions.html);
        if (mPage && !mPage->GetError().empty()) return ReportPageError();
        for (const std::string& problem : mSearch.GetProblems()) console::PrintError(problem);
        if (!ReadAll()) return kInterrupted;
        if (mPage && !mPage->Finish()) return ReportPageError();
        return mStatus;
    }

private:
    bool ReadAll()
    {
        batch::FileChoice choice;
        choice.paths = mOptions.files;
        choice.listFile = mOptions.listFile;
        choice.isRecursive = mOptions.isRecursive;
        choice.reportsSubfolders = true;
        batch::FileWalk walk(std::move(choice));
        batch::ReadingLimits limits;
        limits.jobs = mOptions.jobs;
        limits.seconds = mOptions.timeout;
        return batch::ReadInOrder(
            walk, limits,
            [this](const std::string& path, size_t helperBytes) {
                ReadingOptions reading;
                reading.seconds = mOptions.timeout;
                reading.helperBytes = helperBytes;
                reading.readsPlacedDocuments = mOptions.placed;
                return PackReport(ReadDocument(path, reading));
            },
            [this](const batch::FileAnswer& answer) {
                DocumentReport report;
                if (answer.error.empty()) {
                    report = UnpackReport(answer.text);
                } else {
                    report.format = "unknown";
                    report.error = answer.error;
                }
                report.path = answer.path;
                Report(std::move(report));
            },
            batch::IsInterrupted);
    }

    void Report(DocumentReport report)
    {
        mSearch.Complete(report);
        if (LacksAnything(report)) Raise(kSomethingMissing);
        ReportErrors(report);
        if (mOptions.onlyMissing) {
            KeepMissing(report);
            if (report.error.empty() && !LacksAnything(report) && report.placedDocuments.empty()) {
                return;
            }
        }
        if (mPage) mPage->Add(report);
        Print(report);
    }

    void ReportErrors(const DocumentReport& report)
    {
        if (!report.error.empty()) {
            Raise(kFileFailed);
            // The table has the line itself.
            if (mOptions.json || mOptions.names) {
                console::PrintError(report.path + ": " + report.error);
            }
        }
        for (const DocumentReport& document : report.placedDocuments) ReportErrors(document);
    }

    void Print(const DocumentReport& report)
    {
        std::string text;
        if (mOptions.names) {
            AddNames(report, text);
        } else {
            text = mOptions.json ? WriteJson(report) + "\n" : WriteTable(report);
        }
        if (!text.empty() && !console::Print(text)) Raise(kFileFailed);
    }

    void AddNames(const DocumentReport& report, std::string& text)
    {
        for (const UsedFont& font : report.fonts) {
            const std::string& name = font.postScriptName;
            if (mNames.insert(name).second) text += console::MakePrintable(name) + "\n";
        }
        for (const DocumentReport& document : report.placedDocuments) AddNames(document, text);
    }

    int ReportPageError()
    {
        console::PrintError(mPage->GetError());
        return std::max<int>(mStatus, kFileFailed);
    }

    void Raise(int status) { mStatus = std::max(mStatus, status); }

    const Options& mOptions;
    FontSearch mSearch;
    std::optional<HtmlReport> mPage;
    std::unordered_set<std::string> mNames;
    int mStatus = kAllHere;
};

}  // namespace

int ReportDocuments(const Options& options) { return Job(options).Run(); }

}  // namespace docfonts
