#pragma once

#include <string>

#include "ModalWindow.h"
#include "model/Journal.h"

namespace headless {

// The host's dialog about missing fonts. The Escape key dismisses it, even before its modal session
// has begun; then it is never shown. Main thread only.
class MissingFontsDialog : public ModalWindow {
public:
    // journal    gets a line for each key event and for the session; must outlive the dialog
    // language   a tag of kHostLanguages; any other means English
    MissingFontsDialog(Journal& journal, const std::string& language, long windowNumber);

    bool IsKindOfClass(const char* className) const override;
    std::string GetTitle() const override { return mTitle; }
    long GetWindowNumber() const override { return mWindowNumber; }
    void SendEvent(const SKeyEvent& event) override;

    // Shows the dialog unless it was dismissed. The host's modal session calls this.
    void Show();

    bool IsDismissed() const { return mDismissed; }
    bool WasShown() const { return mShown; }

private:
    Journal& mJournal;
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
