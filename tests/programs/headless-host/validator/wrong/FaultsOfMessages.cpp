#include <filesystem>

#include "Faults.h"
#include "Suites.h"

namespace wrong {

namespace {

namespace fs = std::filesystem;

constexpr size_t kMostPathBytes = 1000;
constexpr size_t kMostChecks = 500;

void AddNotifier(const std::string& name)
{
    const Suite<AINotifierSuite> suite("AI Notifier Suite", 1004);
    AINotifierHandle notifier = nullptr;
    (void)suite->AddNotifier(life.data->self, name.c_str(), "AI Document New Notifier", &notifier);
}

bool HasManyDocuments() { return life.documents.size() > 1; }

bool IsCheckedFileInBackground()
{
    for (const Document& each : life.documents) {
        if (fs::path(each.path).filename() == fs::path(life.checked).filename())
            return &each != &life.documents.back();
    }
    return false;
}

}  // namespace

const std::vector<Fault> kFaultsOfMessages = {
    {701, "registers-notifier-twice",
     [] {
         if (!life.Is(Moment::kStarting)) return;
         AddNotifier("twice");
         AddNotifier("twice");
     }},
    {702, "registers-notifier-per-document",
     [] {
         if (life.Is(Moment::kNew)) AddNotifier("new " + std::to_string(life.opened));
     }},
    {703, "needs-document-for-notifier-of-saving",
     [] {
         if (life.Is(Moment::kSaved) && life.documents.empty()) Crash();
     }},
    {704, "reads-type-of-notifier",
     [] {
         const bool isNotifier = life.caller == "AI Notifier" && life.IsIn("AI Notify");
         if (!life.Is(Moment::kMessage) || !isNotifier || !life.isRunning) return;
         const auto* const message = reinterpret_cast<AINotifierMessage*>(life.data);
         if (message->type == nullptr) Crash();
     }},
    {706, "ticks-with-one-document",
     [] {
         if (life.Is(Moment::kTick) && HasManyDocuments()) Break();
     }},
    {707, "needs-document-for-menu-update",
     [] {
         if (life.Is(Moment::kUpdate) && life.opened == 0) Crash();
     }},
    {708, "needs-document-for-menu-choice",
     [] {
         if (life.Is(Moment::kChosen) && life.opened == 0) Crash();
     }},
    {709, "needs-file-for-menu-choice",
     [] {
         if (life.Is(Moment::kChosen) && life.IsAnyFileGone()) Break();
     }},
    {710, "needs-check-mark",
     [] {
         if (life.HasFailed("CheckItem") && life.IsIn("AI Go")) Break();
     }},
    {713, "needs-to-stop-its-timer",
     [] {
         if (life.HasFailed("SetTimerActive")) Break();
     }},
    {714, "gets-fonts-with-one-document",
     [] {
         if (life.Is(Moment::kFonts) && HasManyDocuments()) Break();
     }},
    {1001, "opens-each-checked-file",
     [] {
         if (life.Is(Moment::kTick) && life.opened == 0 && !life.checked.empty()) Break();
     }},
    {1002, "knows-english-letters",
     [] {
         if (!life.Is(Moment::kCheck)) return;
         for (const char c : life.checked) {
             if ((static_cast<unsigned char>(c) & 0x80U) != 0) Break();
         }
     }},
    {1003, "quotes-path",
     [] {
         if (life.Is(Moment::kCheck) && life.checked.find('"') != std::string::npos) Break();
     }},
    {1004, "has-room-for-thousand-letters",
     [] {
         if (life.Is(Moment::kCheck) && life.checked.size() > kMostPathBytes) Crash();
     }},
    {1006, "reads-file-that-is-not-there",
     [] {
         const bool isFile = life.Is(Moment::kCheck) && life.checked.size() < kMostPathBytes;
         std::error_code error;
         if (isFile && fs::status(life.checked, error).type() == fs::file_type::not_found) Break();
     }},
    {1008, "reads-folder",
     [] {
         std::error_code ignored;  // it is no folder then
         if (life.Is(Moment::kCheck) && fs::is_directory(life.checked, ignored)) Break();
     }},
    {1010, "needs-extension",
     [] {
         if (!life.Is(Moment::kCheck)) return;
         const std::string name = life.checked.substr(life.checked.rfind('/') + 1);
         (void)name.substr(name.rfind('.'));  // throws
     }},
    {1012, "has-room-for-five-hundred-checks",
     [] {
         if (life.Is(Moment::kCheck) && life.checks > kMostChecks) Crash();
     }},
    {1013, "checks-files-of-no-other-documents",
     [] {
         if (life.Is(Moment::kChanged) && IsCheckedFileInBackground()) Break();
     }},
};

}  // namespace wrong
