#include "application/MissingFontsDialog.h"

#include <cstring>

#include "HostPlatform_Linux.h"
#include "application/HostPlatformTable.h"

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

DialogOutcome RunMissingFontsDialog(Host& host, const std::string& language, long windowNumber,
                                    std::string& title)
{
    host.journal.Write("world", "dialog", {{"language", language}, {"window", windowNumber}},
                       nullptr);
    MissingFontsDialog dialog(host.journal, language, windowNumber);
    title = dialog.GetTitle();
    const unsigned long before = GetModalSessionCount();
    const ModalSession session = GetHostPlatform()->beginModalSession(&dialog);
    if (GetModalSessionCount() == before) {
        host.violations.Add(kSessionNotBegun,
                            "beginModalSession: the host's own session was not begun");
    } else if (session != &dialog) {
        host.violations.Add(kSessionNotReturned,
                            "beginModalSession: the session of the host was not handed back");
    }
    return dialog.WasShown() ? DialogOutcome::kShown : DialogOutcome::kDismissed;
}

}  // namespace headless
