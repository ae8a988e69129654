#include "application/MissingFontsDialog.h"

#include <cstring>

namespace headless {

namespace {

constexpr int kKeyDown = 10;               // event type
constexpr unsigned short kEscapeKey = 53;  // key code

}  // namespace

MissingFontsDialog::MissingFontsDialog(Journal& journal, const std::string& language,
                                       long windowNumber)
    : mJournal(journal), mTitle(kHostLanguages[0].missingFontsTitle), mWindowNumber(windowNumber)
{
    for (const HostLanguage& row : kHostLanguages) {
        if (language == row.tag) mTitle = row.missingFontsTitle;
    }
}

bool MissingFontsDialog::IsKindOfClass(const char* className) const
{
    if (className == nullptr) return false;
    return std::strcmp(className, "DVAMacDialog") == 0 || std::strcmp(className, "NSWindow") == 0;
}

void MissingFontsDialog::SendEvent(const SKeyEvent& event)
{
    if (event.type == kKeyDown && event.keyCode == kEscapeKey) mDismissed = true;
    mJournal.Write("modal", "key event", {{"type", event.type}, {"keyCode", event.keyCode}},
                   mDismissed ? "dismissed" : "ignored");
}

void MissingFontsDialog::Show()
{
    mShown = !mDismissed;
    mJournal.Write("modal", "begin session", {{"title", mTitle}}, mShown ? "shown" : "dismissed");
}

}  // namespace headless
