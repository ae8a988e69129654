#include "ArtTypes.h"
#include "CoreErrorCodes.h"
#include "DebugUtils.h"
#include "IllustratorUtilities.h"

namespace {

constexpr int kUnknownError = static_cast<int>(CoreErrorCodes::kUnknownError);

int AppendPath(AIArtHandle art, std::vector<std::string>& paths)
{
    ai::UnicodeString path;
    if (sPlacedSuite == nullptr ||
        sPlacedSuite->GetPlacedFilePathFromArt(art, path) != kHostSuccess) {
        OutputIndentedAndFormattedString(
            0, "WARNING: sPlacedSuite->GetPlacedFilePathFromArt() failed.");
        return kUnknownError;
    }
    paths.push_back(path.as_UTF8());
    OutputIndentedAndFormattedString(0, "Placed object found: '%s'", paths.back().c_str());
    return 0;
}

}  // namespace

int ExamineCurrentDocForPlacedArt(std::vector<std::string>& paths)
{
    int status = kUnknownError;
    AIArtHandle** matches = nullptr;
    int32_t count = 0;
    const AIErr result = GetMatchingArt(kPlacedArt, matches, count);
    OutputIndentedAndFormattedString(
        0,
        "sMatchingArt->GetMatchingArt(spec.type=kPlacedArt, numSpecs=1, numMatches=%d) returned %d",
        count, status);
    if (result != kHostSuccess || matches == nullptr) return status;

    status = 0;
    for (int32_t index = 0; index < count; ++index) {
        // One failure counts for the whole report; the others are listed all the same.
        if (AppendPath((*matches)[index], paths) != 0) status = kUnknownError;
    }
    DisposeIllustratorHandle(matches);
    return status;
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
