#pragma once

#include <string>

#include "ModalWindow.h"

namespace headless {

// The host's dialog about fonts that it doesn't have. It can be dismissed with the Escape key, also
// before its modal session has begun; then nothing is shown.
class MissingFontsDialog : public ModalWindow {
public:
    // `language` is a tag of kHostLanguages; English for any other.
    MissingFontsDialog(const std::string& language, long windowNumber);

    bool IsKindOfClass(const char* className) const override;
    std::string GetTitle() const override { return mTitle; }
    long GetWindowNumber() const override { return mWindowNumber; }
    void SendEvent(const SKeyEvent& event) override;

    // The modal session's part: shows the dialog unless it is dismissed.
    void Show();

    bool IsDismissed() const { return mDismissed; }
    bool WasShown() const { return mShown; }

private:
    std::string mTitle;
    long mWindowNumber;
    bool mDismissed = false;
    bool mShown = false;
};

struct HostLanguage {
    const char* tag;
    const char* missingFontsTitle;
};

constexpr HostLanguage kHostLanguages[] = {
    {"en", "Missing Fonts"},      {"es", "Problemas con la fuente"}, {"fr", "Problèmes de police"},
    {"it", "Caratteri mancanti"}, {"de", "Schriftprobleme"},         {"ja", "環境に無いフォント"},
};

}  // namespace headless
