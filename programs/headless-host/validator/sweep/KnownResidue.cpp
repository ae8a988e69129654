#include "validator/sweep/KnownResidue.h"

#include <algorithm>
#include <vector>

namespace headless {

namespace {

constexpr char kGivingBack[] = "the call that gives it back is the one that failed";
constexpr char kShutdownEnds[] = "PluginCore must not throw; the shutdown ends where it does";
constexpr char kAcquiresAgain[] =
    "after a failure the next message acquires all suites again, but only one round is released";
constexpr char kReleaseEnds[] = "the release of the suites ends with the one that failed";
constexpr char kKeepsGlobals[] =
    "an exception ends the shutdown before it clears the globals, and until then the plug-in stays";
constexpr char kRefusal[] = "refuses to be unloaded after its shutdown";
constexpr char kOnlyNumbers[] =
    "only the numbers that failed results become are caught before the suite is released";
constexpr char kNotLookedAt[] = "the result isn't looked at; the host refuses the null handle";

const std::vector<KnownResidue> kKnownResidues = {
    {104, "GetAPIVersion throw:", kRefusal, kKeepsGlobals},
    {104, "GetSettings throw:", kRefusal, kKeepsGlobals},
    {104, "ReleaseSuite", kRefusal, kKeepsGlobals},
    {104, "TerminatePluginCoreInterface throw:", kRefusal, kKeepsGlobals},
    {302, "ReleaseSuite AI Menu Suite throw:", "SIGABRT (Aborted): terminate called after throwing",
     "the holder of the menu suite releases it in its destructor, which must not throw"},
    {403, "AcquireSuite", "", kAcquiresAgain},
    {403, "FreeBlock throw:", "suite \"SP Blocks Suite\"", kOnlyNumbers},
    {403, "GetAPIVersion throw:", "", kShutdownEnds},
    {403, "GetSettings throw:", "", kShutdownEnds},
    {403, "GetTimerActive throw:", "suite \"AI Timer Suite\"", kOnlyNumbers},
    {403, "ReleaseSuite", "", kReleaseEnds},
    {403, "SetTimerActive throw:", "suite \"AI Timer Suite\"", kOnlyNumbers},
    {403, "TerminatePluginCoreInterface throw:", "", kShutdownEnds},
    {501, "AddMenuItem", "the menu item is null",
     "an item that the host refused stays in the plug-in's list, with the null handle"},
    {501, "GetDefaultFontForScript", "the font key is null", kNotLookedAt},
    {501, "MatchingArtSet throw:", "CountArtSet: the art set is null", kNotLookedAt},
    {501, "NewArtSet throw:", "CountArtSet: the art set is null", kNotLookedAt},
    {503, "AddRef", "text range#", "a reference that couldn't be added is released all the same"},
    {505, "", "memory handle#", "an exception leaves the walk before its array is freed"},
    {505, "", "art set#", "an exception leaves the scan before its set is disposed of"},
    {505, "AcquireSuite", "", kAcquiresAgain},
    {505, "Destroy", "string#", kGivingBack},
    {505, "DisposeFilePath", "file path#", kGivingBack},
    {505, "FreeBlock", "block#", kGivingBack},
    {505, "GetAPIVersion throw:", "block#", kShutdownEnds},
    {505, "GetSettings throw:", "block#", kShutdownEnds},
    {505, "Release", "", kGivingBack},
    {505, "ReleaseSuite", "", kReleaseEnds},
    {505, "TerminatePluginCoreInterface throw:", "", kShutdownEnds},
    {609, "GetAPIVersion throw:", "AllocateGlobals", kShutdownEnds},
    {609, "GetSettings throw:", "AllocateGlobals", kShutdownEnds},
    {609, "TerminatePluginCoreInterface throw:", "AllocateGlobals", kShutdownEnds},
};

}  // namespace

bool IsKnownResidue(const Finding& finding, const std::vector<std::string>& failedCalls)
{
    const auto hasFailed = [&](const std::string& name) {
        return std::any_of(failedCalls.begin(), failedCalls.end(),
                           [&](const std::string& call) { return call.rfind(name, 0) == 0; });
    };
    return std::any_of(kKnownResidues.begin(), kKnownResidues.end(), [&](const KnownResidue& row) {
        return row.rule == finding.rule && hasFailed(row.call) &&
               finding.message.find(row.text) != std::string::npos;
    });
}

}  // namespace headless
