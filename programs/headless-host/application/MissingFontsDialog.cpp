#include "application/MissingFontsDialog.h"

#include <cstring>

#include "model/Host.h"

namespace headless {

namespace {

constexpr int kKeyDown = 10;
constexpr unsigned short kEscapeKey = 53;

void WriteToJournal(const char* op, const nlohmann::json& arguments, const nlohmann::json& result)
{
    Host* const host = Host::GetCurrent();
    if (host != nullptr) host->journal.Write("modal", op, arguments, result);
}

}  // namespace

MissingFontsDialog::MissingFontsDialog(const std::string& language, long windowNumber)
    : mTitle(kHostLanguages[0].missingFontsTitle), mWindowNumber(windowNumber)
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
    WriteToJournal("key event", {{"type", event.type}, {"keyCode", event.keyCode}},
                   mDismissed ? "dismissed" : "ignored");
}

void MissingFontsDialog::Show()
{
    mShown = !mDismissed;
    WriteToJournal("begin session", {{"title", mTitle}}, mShown ? "shown" : "dismissed");
}

}  // namespace headless
