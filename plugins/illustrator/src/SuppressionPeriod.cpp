#include "SuppressionPeriod.h"

#include <cstdint>
#include <ctime>
#include <string>

#include "DebugUtils.h"
#include "FileProbes.h"

namespace {

int64_t sTimeToStopSuppressingMissingFontDialogs = 0;  // seconds since 1970; 0 is off
std::string sFullPathToSuppressionFile;

int64_t GetNow() { return static_cast<int64_t>(std::time(nullptr)); }

}  // namespace

void SetSuppressionOfMissingFontsDialog(long seconds)
{
    OutputIndentedAndFormattedString(0, "%s(until %d seconds from now)",
                                     "SetSuppressionOfMissingFontsDialog",
                                     static_cast<int>(seconds));
    if (CorvantaFileUtils::FileExists(sFullPathToSuppressionFile)) {
        OutputIndentedAndFormattedString(0, "Overridden by '%s'",
                                         sFullPathToSuppressionFile.c_str());
        sTimeToStopSuppressingMissingFontDialogs = 0;
        return;
    }
    sTimeToStopSuppressingMissingFontDialogs = GetNow() + seconds;
}

bool GetSuppressionOfMissingFontsDialog()
{
    constexpr char kName[] = "GetSuppressionOfMissingFontsDialog";
    const int64_t remaining = sTimeToStopSuppressingMissingFontDialogs - GetNow();
    if (sTimeToStopSuppressingMissingFontDialogs == 0) {
        OutputIndentedAndFormattedString(
            0, "%s() returning 0 because sTimeToStopSuppressingMissingFontDialogs is 0.", kName);
        return false;
    }
    if (remaining >= 1) {
        OutputIndentedAndFormattedString(
            0, "%s() returning true because %d seconds remain until suppression expires.", kName,
            static_cast<int>(remaining));
        return true;
    }
    OutputIndentedAndFormattedString(
        0, "%s() returning false because suppression expired %d seconds ago.", kName,
        static_cast<int>(remaining));
    return false;
}

void SetPathToSuppressionOverrideFile(const char* path)
{
    sFullPathToSuppressionFile = path != nullptr ? path : "";
}
