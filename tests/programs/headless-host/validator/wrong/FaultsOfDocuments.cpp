#include <algorithm>
#include <filesystem>
#include <set>

#include "Faults.h"
#include "Life.h"

namespace wrong {

namespace {

constexpr size_t kMostDocuments = 250;
constexpr size_t kMostOpened = 300;
constexpr size_t kMostPlaced = 100;
constexpr size_t kMostFonts = 3;
constexpr size_t kMostRuns = 3000;
constexpr size_t kMostFrames = 2000;

bool HasFile(const Document& document) { return document.path.rfind('/', 0) == 0; }

bool IsAboutDocument(Moment moment) { return life.Is(moment) && life.document != nullptr; }

// Whether it is neither the first nor the last one.
bool IsInTheMiddle()
{
    return life.document != &life.documents.front() && life.document != &life.documents.back();
}

bool IsFileOpenTwice()
{
    return HasFile(*life.document) &&
           std::count_if(life.documents.begin(), life.documents.end(),
                         [](const Document& each) { return each.path == life.document->path; }) > 1;
}

bool IsAnyFileReplaced()
{
    return std::any_of(life.documents.begin(), life.documents.end(), [](const Document& each) {
        std::error_code error;
        const uintmax_t size = std::filesystem::file_size(each.path, error);
        return HasFile(each) && !error && size != each.fileSize;
    });
}

}  // namespace

const std::vector<Fault> kFaultsOfDocuments = {
    {801, "loses-document-saved-as",
     [] {
         if (life.Is(Moment::kSavedAs)) Break();
     }},
    {802, "needs-file-of-changed-document",
     [] {
         if (IsAboutDocument(Moment::kChanged) && life.document->isNew) Break();
     }},
    {803, "knows-first-and-last-document",
     [] {
         if (IsAboutDocument(Moment::kChanged) && IsInTheMiddle()) Break();
     }},
    {804, "closes-first-and-last-document",
     [] {
         if (IsAboutDocument(Moment::kClosed) && IsInTheMiddle()) Break();
     }},
    {805, "has-room-for-250-documents",
     [] {
         if (life.documents.size() > kMostDocuments) Crash();
     }},
    {806, "finds-documents-by-their-file",
     [] {
         if (IsAboutDocument(Moment::kChanged) && IsFileOpenTwice()) Break();
     }},
    {807, "needs-file-of-opened-document",
     [] {
         if (IsAboutDocument(Moment::kOpened) && !HasFile(*life.document)) Break();
     }},
    {808, "reads-vanished-file-for-fonts",
     [] {
         if (life.Is(Moment::kFonts) && life.IsAnyFileGone()) Break();
     }},
    {809, "takes-saved-file-for-its-own",
     [] {
         if (IsAboutDocument(Moment::kSavedAs) && IsFileOpenTwice()) Break();
     }},
    {811, "forgets-document-before-it-is-closed",
     [] {
         if (IsAboutDocument(Moment::kChanged) && life.document->isClosing) Crash();
     }},
    {813, "relies-on-the-size-of-files",
     [] {
         if (life.Is(Moment::kFonts) && IsAnyFileReplaced()) Break();
     }},
    {814, "waits-for-the-checked-file",
     [] {
         if (life.Is(Moment::kChanged) && !life.checked.empty()) Break();
     }},
    {815, "has-room-for-300-openings",
     [] {
         if (life.Is(Moment::kOpened) && life.opened > kMostOpened) Crash();
     }},
    {816, "uses-path-of-no-document",
     [] {
         if (life.HasFailed("GetFullPath")) Crash();
     }},
    {901, "needs-text",
     [] {
         if (!IsAboutDocument(Moment::kChanged)) return;
         if (!life.document->isNew && life.frames == 0) Crash();
     }},
    {902, "needs-text-in-each-frame",
     [] {
         if (life.Is(Moment::kFrame) && life.frameFonts.empty()) Crash();
     }},
    {903, "has-room-for-hundred-placed-files",
     [] {
         if (life.Is(Moment::kWalked) && life.placed > kMostPlaced) Crash();
     }},
    {904, "has-room-for-three-fonts",
     [] {
         if (!life.Is(Moment::kFrame)) return;
         const std::set<std::string> fonts(life.frameFonts.begin(), life.frameFonts.end());
         if (fonts.size() > kMostFonts) Crash();
     }},
    {905, "has-room-for-three-thousand-runs",
     [] {
         if (life.Is(Moment::kFrame) && life.frameFonts.size() > kMostRuns) Crash();
     }},
    {906, "has-room-for-two-thousand-frames",
     [] {
         if (life.Is(Moment::kFrame) && life.frames > kMostFrames) Crash();
     }},
    {907, "needs-name-of-each-font",
     [] {
         if (life.HasFailed("GetPostScriptFontName")) Break();
     }},
    {909, "goes-on-after-failed-walk",
     [] {
         if (life.HasFailed("GetTextRunsIterator")) Crash();
     }},
    {910, "takes-dialog-for-missing-text",
     [] {
         if (life.Is(Moment::kOpened) && life.sawDialog && !life.frameFonts.empty() &&
             !life.sawUnknown) {
             Break();
         }
     }},
    {911, "needs-default-font-for-menu",
     [] {
         if (life.HasFailed("GetDefaultFontForScript") && life.IsIn("AI Go")) Crash();
     }},
    {912, "expects-another-font-in-each-run",
     [] {
         const auto& fonts = life.frameFonts;
         if (!life.Is(Moment::kFrame)) return;
         if (std::adjacent_find(fonts.begin(), fonts.end()) != fonts.end()) Break();
     }},
};

}  // namespace wrong
