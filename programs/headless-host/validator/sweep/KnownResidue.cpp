#include "validator/sweep/KnownResidue.h"

#include <algorithm>
#include <vector>

namespace headless {

namespace {

constexpr char kGivingBack[] = "the call that gives it back is the one that failed";

const std::vector<KnownResidue> kKnownResidues = {
    {505, "Destroy", "string#", kGivingBack},
    {505, "DisposeFilePath", "file path#", kGivingBack},
    {505, "DisposeArtSet", "art set#", kGivingBack},
    {505, "FreeBlock", "block#", kGivingBack},
    {505, "MdMemoryDisposeHandle", "memory handle#", kGivingBack},
    {505, "Release", "", kGivingBack},
    {501, "AddMenuItem", "the menu item is null",
     "an item that the host refused stays in the plug-in's list, with the null handle"},
    {403, "TerminatePluginCoreInterface throw:", "",
     "PluginCore must not throw; the shutdown ends where it does"},
    {505, "TerminatePluginCoreInterface throw:", "",
     "PluginCore must not throw; the shutdown ends where it does"},
};

}  // namespace

bool IsKnownResidue(const Finding& finding, const std::string& failedCall)
{
    return std::any_of(kKnownResidues.begin(), kKnownResidues.end(), [&](const KnownResidue& row) {
        return row.rule == finding.rule && failedCall.rfind(row.call, 0) == 0 &&
               finding.message.find(row.text) != std::string::npos;
    });
}

}  // namespace headless
