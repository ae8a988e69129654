#include "application/HostPlatformTable.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <string>

#include "HostPlatform_Linux.h"
#include "application/MissingFontsDialog.h"
#include "documents/postscript/SlowDrawings.h"
#include "model/Host.h"
#include "model/PluginCode.h"
#include "system/Paths.h"

namespace headless {

namespace {

unsigned long sModalSessionCount = 0;

// The host's own modal session. Without a screen, a dialog that was not dismissed is shown and
// closed at once.
ModalSession BeginRealModalSession(ModalWindow* window) noexcept
{
    const plugin_code::Scope scope(false);
    ++sModalSessionCount;
    if (auto* const dialog = dynamic_cast<MissingFontsDialog*>(window)) dialog->Show();
    return window;
}

void ShowAlert(const char* messageText, const char* informativeText) noexcept
{
    Host* const host = Host::GetCurrent();
    if (host == nullptr) return;
    const plugin_code::Scope scope(false);
    try {
        const Alert alert{messageText == nullptr ? "" : messageText,
                          informativeText == nullptr ? "" : informativeText};
        host->alerts.push_back(alert);
        host->journal.Write("alert", "showAlert",
                            {{"message", alert.message}, {"information", alert.information}},
                            nullptr);
        if (host->alertSink) host->alertSink(alert);
    } catch (...) {
        // The caller is C code of the plug-in: losing an alert is better than an exception.
        return;
    }
}

SHostPlatform sPlatform = {BeginRealModalSession, ShowAlert, nullptr};

std::mutex sDrawingMutex;
std::map<std::string, double> sDrawingSeconds;  // by the name of the drawing

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
    const std::lock_guard<std::mutex> lock(sDrawingMutex);
    sDrawingSeconds.clear();
    documents::UseSlowDrawings({HeadlessHostGetDrawingSeconds, HeadlessHostAddDrawingSeconds});
}

std::string FindFrameworks()
{
    for (const char* const place : {"../Frameworks", "../event-bus/Frameworks"}) {
        std::string folder = MakeAbsolute(GetProgramFolder(), place);
        if (IsFolder(folder)) return folder;
    }
    return {};
}

void SetPrivateFrameworks(const std::string& folder)
{
    static std::string kept;  // the table points into it
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
        // The caller is C code of PluginCore: losing a line is better than an exception.
        return;
    }
}

extern "C" bool HeadlessHostIsDocumentOpen(const char* path)
{
    const headless::Host* const host = headless::Host::GetCurrent();
    if (host == nullptr || path == nullptr) return false;
    const auto& documents = host->GetDocuments();
    return std::any_of(documents.begin(), documents.end(),
                       [path](const auto& document) { return document->path == path; });
}

extern "C" double HeadlessHostGetDrawingSeconds(const char* drawing)
{
    if (drawing == nullptr) return 0;
    try {
        const std::lock_guard<std::mutex> lock(headless::sDrawingMutex);
        const auto found = headless::sDrawingSeconds.find(drawing);
        return found == headless::sDrawingSeconds.end() ? 0 : found->second;
    } catch (...) {
        return 0;  // the drawing is tried again
    }
}

extern "C" void HeadlessHostAddDrawingSeconds(const char* drawing, double seconds)
{
    if (drawing == nullptr) return;
    try {
        const std::lock_guard<std::mutex> lock(headless::sDrawingMutex);
        double& longest = headless::sDrawingSeconds[drawing];
        longest = std::max(longest, seconds);
    } catch (...) {
        return;  // as above
    }
}
