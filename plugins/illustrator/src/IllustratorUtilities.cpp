#include "IllustratorUtilities.h"

#include <string_view>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

#include "ArtTypes.h"
#include "CoreErrorCodes.h"
#include "DebugUtils.h"
#include "MatchingArt.h"

namespace {

constexpr int kUnknownError = static_cast<int>(CoreErrorCodes::kUnknownError);
constexpr short kNameSize = 256;

void ThrowIfAIErr(int code)
{
    if (code != kHostSuccess) throw code;
}

// The fonts found so far. The record and the name are those of the last run: a document has many
// runs, and memory of their own for each would take longer than all else but the traces.
struct FontScan {
    explicit FontScan(FontList& list) : fonts(list)
    {
        for (const SFontRecord& font : fonts) {
            for (const auto& [key, value] : font) {
                if (key == "PostScriptName") known.insert(value);
            }
        }
    }

    FontList& fonts;
    // The names in `fonts`, where a repeat is found faster. A name stays where it is when the list
    // grows, because a record is moved without its parts.
    std::unordered_set<std::string_view> known;
    static_assert(std::is_nothrow_move_constructible_v<SFontRecord>);
    SFontRecord record;
    std::string name;
};

// Makes the record that of `name`, in the memory that its last name had.
void FillRecord(const std::string& name, SFontRecord& record)
{
    std::string copy;
    if (!record.empty()) copy = std::move(record.begin()->second);
    copy = name;
    CrossPluginUtils::CreateFontDataForOneFont(std::move(copy), record);
}

// Returns 0 for a font that was added or is a repeat; kUnknownError for any other run.
int AddNewFontNameFromTextArt(ATE::ITextRange run, FontScan& scan)
{
    std::string& name = scan.name;
    name.clear();
    const int status = GetTextRunFaceStyle(run, name);
    if (status != 0) {
        OutputIndentedAndFormattedString(0, "ERROR:  GetTextRunFaceStyle() returned %d", status);
        return kUnknownError;
    }
    if (IsIllustratorDefaultFont(name)) {
        OutputIndentedAndFormattedString(
            0, "AddNewFontNameFromTextArt() ignoring '%s' (Illustrator default font).",
            name.c_str());
        return kUnknownError;
    }
    FillRecord(name, scan.record);
    const bool isAdded = scan.known.count(name) == 0 &&
                         CrossPluginUtils::AddFontToArray(scan.record, false, scan.fonts);
    if (isAdded) {
        scan.known.insert(scan.fonts.back().begin()->second);
        OutputIndentedAndFormattedString(0, "AddNewFontNameFromTextArt() added '%s'", name.c_str());
    } else {
        OutputIndentedAndFormattedString(
            0, "AddNewFontNameFromTextArt() ignored duplicate font '%s'", name.c_str());
    }
    return 0;
}

// Sets `status` to the host's code if the frame has no text range, else to that of its last run.
void ExamineFrame(AIArtHandle frame, int frameIndex, FontScan& scan, int& status)
{
    ATE::_TextRange* rangeReference = nullptr;
    status = sTextFrameSuite != nullptr ? sTextFrameSuite->GetATETextRange(frame, &rangeReference)
                                        : kHostBadParameter;
    if (status != 0) {
        OutputIndentedAndFormattedString(
            0, "ERROR: sTextFrameSuite->GetATETextRange(AIArtHandle index=%d) returned %d",
            frameIndex, status);
        return;
    }
    const ATE::ITextRange range(rangeReference);
    ATE::ITextRunsIterator runs = range.GetTextRunsIterator();
    while (runs.IsNotDone()) {
        status = AddNewFontNameFromTextArt(runs.Item(), scan);
        if (status != 0) {
            OutputIndentedAndFormattedString(
                0, "WARNING: for text frame %d, AddNewFontNameFromTextArt() returned %d",
                frameIndex, status);
        }
        runs.Next();
    }
}

int ExamineTextRangesInThisFrameForFontUsage(AIArtHandle** matches, int count, FontList& fonts)
{
    int status = kUnknownError;
    FontScan scan(fonts);
    for (int index = 0; index < count; ++index) {
        try {
            ExamineFrame((*matches)[index], index, scan, status);
        } catch (const ATE::Exception& exception) {
            status = exception.error;
        }
    }
    return status;
}

}  // namespace

int ExamineTextFramesInCurrentDocForFontUsage(FontList& fonts)
{
    int status = kUnknownError;
    AIArtHandle** matches = nullptr;
    int32_t count = 0;
    const AIErr result = GetMatchingArt(kTextFrameArt, matches, count);
    OutputIndentedAndFormattedString(
        0,
        "sMatchingArt->GetMatchingArt(spec.type=kTextFrameArt, numSpecs=1, numMatches=%d) "
        "returned %d",
        count, status);
    if (result == kHostSuccess && matches != nullptr) {
        status = ExamineTextRangesInThisFrameForFontUsage(matches, count, fonts);
        DisposeIllustratorHandle(matches);
    }
    return status;
}

int GetTextRunFaceStyle(ATE::ITextRange run, std::string& name)
{
    int result = 0;
    try {
        bool isAssigned = false;
        const ATE::IFont font = run.GetUniqueCharFeatures().GetFont(&isAssigned);
        AIFontKey key = nullptr;
        ThrowIfAIErr(gFontSuite->FontKeyFromFontRef(font.GetRef(), &key));
        // One byte more than the host may write, so that the text is always terminated.
        char buffer[kNameSize + 1] = {};
        ThrowIfAIErr(gFontSuite->GetPostScriptFontName(key, buffer, kNameSize));
        name = buffer;
    } catch (const ATE::Exception& exception) {
        result = exception.error;
    } catch (int error) {
        result = error;
    }
    OutputIndentedAndFormattedString(0, "%s(..., '%s') returning %d", "GetTextRunFaceStyle",
                                     name.c_str(), result);
    return result;
}

std::string CurrentDocumentFontUsage()
{
    FontList fonts;
    std::vector<std::string> paths;
    const int textStatus = ExamineTextFramesInCurrentDocForFontUsage(fonts);
    const int placedStatus = ExamineCurrentDocForPlacedArt(paths);
    if (textStatus != 0 && placedStatus != 0) return std::string();
    return CrossPluginUtils::JSONStringRepresentation(fonts, paths);
}
