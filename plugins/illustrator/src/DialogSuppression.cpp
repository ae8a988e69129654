#include "DialogSuppression.h"

#include <cstdint>
#include <string>
#include <vector>

#include "DebugUtils.h"

unsigned short sDismissalKeyCode = 0x35;

namespace {

constexpr char kDialogClass[] = "DVAMacDialog";
constexpr long kSecondsAfterDialog = 5;
constexpr int kKeyDown = 10;

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

// An entry of one belongs to the entry of the other at the same place.
std::vector<std::string> sTitleSubstrings;
std::vector<uint32_t> sDismissalKeys;

void SendDismissalKey(ModalWindow& window, unsigned int keyCode)
{
    SKeyEvent event = {};
    event.type = kKeyDown;
    event.windowNumber = window.GetWindowNumber();
    // A line feed by its characters and Escape by its code: the dialog wants both.
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

void RemoveSuppressionHooks() {}

void HandleModalWindow(ModalWindow& window)
{
    if (!window.IsKindOfClass(kDialogClass)) return;
    OutputIndentedAndFormattedString(0, "Saw a dialog titled '%s'", window.GetTitle().c_str());
    if (!GetSuppressionOfMissingFontsDialog()) return;
    // A modal session that begins from inside the next step passes through untouched.
    SetSuppressionOfMissingFontsDialog(0);
    OSCallGuarded(DismissIfSuppressable, &window);
    SetSuppressionOfMissingFontsDialog(kSecondsAfterDialog);
}
