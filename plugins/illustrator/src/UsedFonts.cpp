#include "UsedFonts.h"

#include <utility>

#include "ArtTypes.h"
#include "DebugUtils.h"
#include "GJSONUtils.h"
#include "PluginGlobals.h"

namespace {

constexpr short kNameSize = 8192;

AIArtSpec sTextFrameSpec(kTextFrameArt, 0, 0);

// The first text frame leads to all stories of the document.
ATE::IArrayFontRef GetFontsOfAllStories()
{
    AIArtSet set = nullptr;
    // It reports every failure by an exception.
    (void)GetTextFrameArtSet(&sTextFrameSpec, 1, set);
    int count = 0;
    ThrowAIErr(gArtSetSuite->CountArtSet(set, &count));
    if (count <= 0) ThrowAIErr(kHostBadParameter);

    AIArtHandle art = nullptr;
    ThrowAIErr(gArtSetSuite->IndexArtSet(set, 0, &art));
    ATE::_TextFrame* frameReference = nullptr;
    ThrowAIErr(sTextFrameSuite->GetATETextFrame(art, &frameReference));
    const ATE::ITextFrame frame(frameReference);
    return frame.GetStory().GetStories().GetTextRanges().GetCharInspector().GetFont();
}

void AppendName(json& fonts, const ATE::IFont& font)
{
    AIFontKey key = nullptr;
    ThrowAIErr(gFontSuite->FontKeyFromFontRef(font.GetRef(), &key));
    // One byte more than the host may write, so that the text is always terminated.
    char name[kNameSize + 1] = {};
    ThrowAIErr(gFontSuite->GetPostScriptFontName(key, name, kNameSize));
    // Not from a list of names and values, whose destructor allocates.
    json record = json::object();
    const GJSONScope scope(record);
    record["PostScriptName"] = name;
    // The JSON library leaves a null value unusable if it can't make it an array.
    if (fonts.is_null()) fonts = json::array();
    fonts.push_back(std::move(record));
    OutputIndentedAndFormattedString(0, "Name of used font: %s", name);
}

void AppendNames(json& fonts)
{
    const ATE::IArrayFontRef used = GetFontsOfAllStories();
    const int size = used.GetSize();
    if (size < 1) ThrowAIErr(kHostBadParameter);
    for (int index = 0; index < size; ++index) {
        const ATE::IFont font = used.Item(index);
        if (!font.IsNull()) AppendName(fonts, font);
    }
}

}  // namespace

AIErr GetTextFrameArtSet(AIArtSpec* specs, short numSpecs, AIArtSet& set)
{
    AIErr result = kHostSuccess;
    if (gArtSetSuite == nullptr) ThrowAIErr(kHostBadParameter);
    try {
        result = gArtSetSuite->NewArtSet(&set);
        ThrowAIErr(result);
        result = gArtSetSuite->MatchingArtSet(specs, numSpecs, set);
        ThrowAIErr(result);
    } catch (const ai::Error& error) {
        // The result is the code of the failure and not that of the disposal.
        if (set != nullptr) (void)gArtSetSuite->DisposeArtSet(&set);
        result = error;
    }
    return result;
}

AIErr IterateUsedFonts(json& fonts)
{
    OutputIndentedAndFormattedString(1, "Entering %s()", "IterateUsedFonts");
    AIErr result = kHostSuccess;
    try {
        AppendNames(fonts);
    } catch (const ai::Error& error) {
        result = error;
    } catch (const ATE::Exception& exception) {
        result = exception.error;
    }
    OutputIndentedAndFormattedString(-1, "%s() returning %d", "IterateUsedFonts", result);
    return result;
}

json CollectUsedFonts()
{
    json fonts;
    try {
        // After an error of the text engine the fonts found so far are used.
        (void)IterateUsedFonts(fonts);
    } catch (...) {
        OutputIndentedAndFormattedString(0, "No fonts found in document.");
    }
    return fonts;
}
