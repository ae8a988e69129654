#include "DialogSuppression.h"

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

#include "CrossPluginUtils.h"
#include "DebugUtils.h"
#include "FileProbes.h"
#include "PCILoader.h"

unsigned short sDismissalKeyCode = 0x35;

namespace {

constexpr char kDialogClass[] = "DVAMacDialog";
constexpr long kSecondsAfterDialog = 5;
constexpr int kKeyDown = 10;

constexpr char kOverrideFileName[] = "DialogSuppression.tmp";
constexpr char kSettingName[] = "DialogSuppression";
constexpr size_t kSettingsSize = 8192;
constexpr int kSuppressionForbidden = 2;

const char* const kBuiltInHints[] = {
    "Font",
    "font",
    "fuente",
    "Fuentes",
    "police",
    "Polices",
    "Caratteri",
    "Schriftprobleme",
    "Schriftart suchen",
    "Schriften",
    "\xE3\x83\x95\xE3\x82\xA9\xE3\x83\xB3\xE3\x83\x88",  // U+30D5 U+30A9 U+30F3 U+30C8
};

// Parallel vectors: one entry of each per hint.
std::vector<std::string> sTitleSubstrings;
std::vector<uint32_t> sDismissalKeys;

void SendDismissalKey(ModalWindow& window, unsigned int keyCode)
{
    SKeyEvent event = {};
    event.type = kKeyDown;
    event.windowNumber = window.GetWindowNumber();
    // The characters say line feed and the key code says Escape: the dialog needs both.
    event.characters = "\n";
    event.charactersIgnoringModifiers = "\n";
    event.keyCode = static_cast<unsigned short>(keyCode);
    window.SendEvent(event);
}

void DismissIfSuppressable(void* context)
{
    ModalWindow& window = *static_cast<ModalWindow*>(context);
    unsigned int keyCode = 0;
    if (isSuppressableDialog(&window, &keyCode)) SendDismissalKey(window, keyCode);
}

int GetSettingOfUser()
{
    // One byte more than PluginCore may write, so that the text is always terminated.
    char settings[kSettingsSize + 1] = {};
    size_t size = kSettingsSize;
    int value = 0;
    PCILoader* const core = PCILoader::GetSharedInstance();
    if (core != nullptr && core->pfGetSettings != nullptr &&
        core->pfGetSettings(settings, &size) == 0) {
        // If the setting can't be read, `value` is still 0.
        (void)CrossPluginUtils::GetSettingFromJSONBuffer(settings, kSettingName, &value);
    }
    return value;
}

// Returns whether the user's setting allows suppression, and if so adds the built-in hints.
bool SetUpBuiltInHints()
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

void AddDialogSuppressionHint(const char* titleSubstring, int keyCode)
{
    OutputIndentedAndFormattedString(0, "%s(%s, 0x%08x)", "AddDialogSuppressionHint",
                                     titleSubstring, static_cast<unsigned int>(keyCode));
    sTitleSubstrings.emplace_back(titleSubstring);
    sDismissalKeys.push_back(static_cast<uint32_t>(keyCode));
}

void CreateListOfSuppressableDialogs()
{
    for (const char* hint : kBuiltInHints) AddDialogSuppressionHint(hint, sDismissalKeyCode);
}

bool isSuppressableDialog(ModalWindow* window, unsigned int* outKeyCode)
{
    auto key = sDismissalKeys.begin();
    for (const std::string& hint : sTitleSubstrings) {
        const std::string title = window->GetTitle();
        OutputIndentedAndFormattedString(0, "Does '%s' contain '%s'?", title.c_str(), hint.c_str());
        if (OSTitleContains(title, hint)) {
            *outKeyCode = *key;
            OutputIndentedAndFormattedString(
                0, "Dialog '%s' is suppressable with key-event 0x%08x because it contains '%s'",
                title.c_str(), *outKeyCode, hint.c_str());
            return true;
        }
        ++key;
    }
    return false;
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
        if (!SetUpBuiltInHints()) enable = false;
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

void RemoveSuppressionHooks() {}

void HandleModalWindow(ModalWindow& window)
{
    if (!window.IsKindOfClass(kDialogClass)) return;
    OutputIndentedAndFormattedString(0, "Saw a dialog titled '%s'", window.GetTitle().c_str());
    if (!GetSuppressionOfMissingFontsDialog()) return;
    // End the period first: a nested modal session must pass through unchanged.
    SetSuppressionOfMissingFontsDialog(0);
    OSCallGuarded(DismissIfSuppressable, &window);
    SetSuppressionOfMissingFontsDialog(kSecondsAfterDialog);
}
