#include "application/HostPlatformTable.h"

#include "application/MissingFontsDialog.h"
#include "model/Host.h"

namespace headless {

namespace {

unsigned long sModalSessionCount = 0;

// The host's own modal session. There is no screen: a dialog that nobody dismissed counts as shown
// and is over at once.
ModalSession BeginRealModalSession(ModalWindow* window) noexcept
{
    ++sModalSessionCount;
    if (auto* const dialog = dynamic_cast<MissingFontsDialog*>(window)) dialog->Show();
    return window;
}

void ShowAlert(const char* messageText, const char* informativeText) noexcept
{
    Host* const host = Host::GetCurrent();
    if (host == nullptr) return;
    try {
        const Alert alert{messageText == nullptr ? "" : messageText,
                          informativeText == nullptr ? "" : informativeText};
        host->alerts.push_back(alert);
        host->journal.Write("alert", "showAlert",
                            {{"message", alert.message}, {"information", alert.information}},
                            nullptr);
        if (host->alertSink) host->alertSink(alert);
    } catch (...) {
        // An alert that can't be kept is no reason to stop the guest.
        return;
    }
}

SHostPlatform sPlatform = {BeginRealModalSession, ShowAlert, nullptr};

nlohmann::json ParseOrQuote(const char* text)
{
    if (text == nullptr) return nullptr;
    nlohmann::json value = nlohmann::json::parse(text, nullptr, false);
    return value.is_discarded() ? nlohmann::json(text) : value;
}

}  // namespace

void ResetHostPlatform()
{
    sModalSessionCount = 0;
    sPlatform = {BeginRealModalSession, ShowAlert, nullptr};
}

void SetPrivateFrameworks(const std::string& folder)
{
    static std::string kept;  // the table points at it
    kept = folder;
    sPlatform.privateFrameworksPath = kept.empty() ? nullptr : kept.c_str();
}

unsigned long GetModalSessionCount() { return sModalSessionCount; }

}  // namespace headless

extern "C" SHostPlatform* GetHostPlatform() { return &headless::sPlatform; }

extern "C" void HeadlessHostJournal(const char* side, const char* op, const char* argsJson,
                                    const char* resultJson)
{
    headless::Host* const host = headless::Host::GetCurrent();
    if (host == nullptr || side == nullptr || op == nullptr || !host->journal.IsOpen()) return;
    try {
        host->journal.Write(side, op, headless::ParseOrQuote(argsJson),
                            headless::ParseOrQuote(resultJson));
    } catch (...) {
        // The journal is an aid: the caller's work goes on without it.
        return;
    }
}
