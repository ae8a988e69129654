#include "PlacedArt.h"

#include "ArtTypes.h"
#include "CoreErrorCodes.h"
#include "DebugUtils.h"
#include "HostInterface.h"
#include "MatchingArt.h"

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
        // One failure sets the status for good; the other paths are appended all the same.
        if (AppendPath((*matches)[index], paths) != 0) status = kUnknownError;
    }
    DisposeIllustratorHandle(matches);
    return status;
}
