#include <cstdint>
#include <ctime>
#include <fstream>
#include <string>

#include "CrossPluginUtils.h"
#include "DebugUtils.h"
#include "DialogSuppression.h"
#include "FileProbes.h"
#include "PCILoader.h"

namespace {

constexpr char kOverrideFileName[] = "DialogSuppression.tmp";
constexpr char kSettingName[] = "DialogSuppression";
constexpr size_t kSettingsSize = 8192;
constexpr int kSuppressionForbidden = 2;

int64_t sTimeToStopSuppressingMissingFontDialogs = 0;  // seconds since 1970; 0 is off
std::string sFullPathToSuppressionFile;

int64_t GetNow() { return static_cast<int64_t>(std::time(nullptr)); }

int GetSettingOfUser()
{
    // One byte more than PluginCore is told, so that the text ends whatever it writes.
    char settings[kSettingsSize + 1] = {};
    size_t size = kSettingsSize;
    int value = 0;
    PCILoader* const core = PCILoader::GetSharedInstance();
    if (core != nullptr && core->pfGetSettings != nullptr &&
        core->pfGetSettings(settings, &size) == 0) {
        // A setting that can't be read leaves the value at 0.
        (void)CrossPluginUtils::GetSettingFromJSONBuffer(settings, kSettingName, &value);
    }
    return value;
}

// Whether suppression may go on; fills the list of hints if so.
bool SetUpWithoutOverrideFile()
{
    const int value = GetSettingOfUser();
    if (value >= kSuppressionForbidden) {
        OutputIndentedAndFormattedString(0, "DialogSuppression overridden by preference value %d",
                                         value);
        return false;
    }
    CreateListOfSuppressableDialogs();
    return true;
}

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

bool DialogSuppressionOverrideFileExists(bool& dialogsListed)
{
    std::string path;
    std::string version;
    int missingCount = 0;
    PCILoader* const core = PCILoader::GetSharedInstance();
    if (core == nullptr || !core->IsLoaded(&path, &version, &missingCount)) return false;
    const size_t separator = path.find_last_of("/\\");
    if (separator == std::string::npos) return false;

    dialogsListed = false;
    path.erase(separator + 1);
    path += kOverrideFileName;
    if (!CorvantaFileUtils::FileExists(path)) return false;

    SetPathToSuppressionOverrideFile(path.c_str());
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        AddDialogSuppressionHint(line.c_str(), sDismissalKeyCode);
        dialogsListed = true;
    }
    return true;
}

void SetupIllustratorDialogSuppression(bool enable)
{
    OutputIndentedAndFormattedString(1, "Entering %s(%d)", "SetupIllustratorDialogSuppression",
                                     enable);
    bool dialogsListed = true;
    if (!DialogSuppressionOverrideFileExists(dialogsListed)) {
        if (!SetUpWithoutOverrideFile()) enable = false;
    } else if (!dialogsListed) {
        enable = false;
        OutputIndentedAndFormattedString(0,
                                         "DialogSuppression completely disabled by existence of "
                                         "empty DialogSuppression.tmp");
    } else {
        OutputIndentedAndFormattedString(
            0, "Suppressing only dialogs listed in DialogSuppression.tmp");
    }
    if (enable) {
        InitSuppressionHooks();
    } else {
        RemoveSuppressionHooks();
    }
    OutputIndentedAndFormattedString(-1, "Exiting %s(%d)", "SetupIllustratorDialogSuppression",
                                     enable);
}
