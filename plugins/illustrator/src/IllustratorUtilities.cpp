#include "IllustratorUtilities.h"

#include "CoreErrorCodes.h"
#include "DebugUtils.h"
#include "DefaultFonts.h"

namespace {

constexpr int kUnknownError = static_cast<int>(CoreErrorCodes::kUnknownError);
constexpr short kNameSize = 256;

void ThrowIfAIErr(int code)
{
    if (code != kNoErr) throw code;
}

// 0 for a font that was added or is a repeat; kUnknownError for any other run.
int AddNewFontNameFromTextArt(ATE::ITextRange run, FontList& fonts)
{
    std::string name;
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
    SFontRecord record;
    CrossPluginUtils::CreateFontDataForOneFont(name, record);
    if (CrossPluginUtils::AddFontToArray(record, true, fonts)) {
        OutputIndentedAndFormattedString(0, "AddNewFontNameFromTextArt() added '%s'", name.c_str());
    } else {
        OutputIndentedAndFormattedString(
            0, "AddNewFontNameFromTextArt() ignored duplicate font '%s'", name.c_str());
    }
    return 0;
}

void ExamineRunsOfFrame(ATE::_TextRange* rangeReference, int frameIndex, FontList& fonts,
                        int& status)
{
    const ATE::ITextRange range(rangeReference);
    ATE::ITextRunsIterator runs = range.GetTextRunsIterator();
    while (runs.IsNotDone()) {
        status = AddNewFontNameFromTextArt(runs.Item(), fonts);
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
    for (int index = 0; index < count; ++index) {
        ATE::_TextRange* range = nullptr;
        status = sTextFrameSuite->GetATETextRange((*matches)[index], &range);
        if (status != 0) {
            OutputIndentedAndFormattedString(
                0, "ERROR: sTextFrameSuite->GetATETextRange(AIArtHandle index=%d) returned %d",
                index, status);
            continue;
        }
        try {
            ExamineRunsOfFrame(range, index, fonts, status);
        } catch (const ATE::Exception& exception) {
            status = exception.error;
        }
    }
    return status;
}

void DisposeIllustratorHandle(AIArtHandle**& handle)
{
    // A failure leaves the array with the host, which is where it came from.
    (void)sMdMemorySuite->MdMemoryDisposeHandle(reinterpret_cast<void**>(handle));
    handle = nullptr;
}

}  // namespace

int ExamineTextFramesInCurrentDocForFontUsage(FontList& fonts)
{
    int status = kUnknownError;
    AIMatchingArtSpec spec(kTextFrameArt, 0, 0);
    AIArtHandle** matches = nullptr;
    int32_t count = 0;
    const AIErr result = sMatchingArt->GetMatchingArt(&spec, 1, &matches, &count);
    OutputIndentedAndFormattedString(
        0,
        "sMatchingArt->GetMatchingArt(spec.type=kTextFrameArt, numSpecs=1, numMatches=%d) "
        "returned %d",
        count, status);
    if (result == kNoErr && matches != nullptr) {
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
        // One byte more than the host is told, so that the text ends whatever it writes.
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
