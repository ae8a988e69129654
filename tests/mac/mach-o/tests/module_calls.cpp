// module-calls SCENARIO ... --plugin FOLDER ...: sends messages to the plug-in in FOLDER and prints
// each result with the calls of both boundaries. Other arguments of headless-host are ignored.

#include <dlfcn.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>

#include "FakeWindow.h"
#include "ScriptedHost.h"
#include "ScriptedPluginCore.h"

namespace {

constexpr AIErr kCode = 4711;

class Run {
public:
    explicit Run(const std::string& folder)
    {
        host.defaultFonts[-2] = "HostSans-Regular";
        ScriptedDocument& document = host.AddDocument("/a.ai");
        document.frames = {{{"A"}}, {{"B"}}};
        document.storyFonts = {"A", "HostSans-Regular", "B"};
        document.placedPaths = {"/placed.pdf"};
        void* const module = dlopen((folder + "/TypeloftSPEA").c_str(), RTLD_NOW | RTLD_LOCAL);
        if (module == nullptr) throw std::runtime_error(dlerror());
        mEntry = reinterpret_cast<PluginEntry>(dlsym(module, "PluginMain"));
    }

    void Interface(const std::string& selector)
    {
        SPInterfaceMessage message = host.InterfaceMessage();
        Print(selector, host.Send(mEntry, "SP Interface", selector, message));
    }

    void Notify(const std::string& type)
    {
        AINotifierMessage message = host.NotifierMessage(type, host.DocumentHandle(0));
        Print(type, host.Send(mEntry, "AI Notifier", "AI Notify", message));
    }

    void Check(const std::string& path)
    {
        ScriptedFileFormatMessage message = host.FileFormatMessage(path);
        Print("AI Check", host.Send(mEntry, "AI File Format", "AI Check", message.record));
    }

    void Session(const char* label, FakeWindow& window)
    {
        const size_t before = host.modalSessions.size();
        const auto session =
            reinterpret_cast<unsigned long>(GetHostPlatform()->beginModalSession(&window));
        std::printf("session %s: %#lx, the host began %zu, %s\n", label, session,
                    host.modalSessions.size() - before,
                    host.modalSessions.back() == &window ? "the same window" : "another window");
        for (size_t index = 0; index < window.events.size(); ++index) {
            const SKeyEvent& event = window.events[index];
            std::printf(
                "  event %d at %g %g, flags %u, time %g, window %ld, %zu and %zu characters"
                ", repeat %d, key %d\n",
                event.type, event.x, event.y, event.modifierFlags, event.timestamp,
                event.windowNumber, window.characters[index].size(),
                window.charactersIgnoringModifiers[index].size(), event.isARepeat, event.keyCode);
        }
        window.events.clear();
    }

    void Finish()
    {
        std::printf("live: %zu strings, %zu paths, %zu references, %zu art arrays, %zu art sets\n",
                    host.LiveStrings(), host.LivePaths(), host.LiveReferences(),
                    host.LiveArtArrays(), host.LiveArtSets());
        for (const std::string& fault : host.Faults()) std::printf("fault: %s\n", fault.c_str());
    }

    ScriptedHost host;

private:
    void Print(const std::string& label, AIErr result)
    {
        std::printf("%s: %d\n", label.c_str(), result);
        for (const std::string& call : host.Calls()) std::printf("  host %s\n", call.c_str());
        host.ClearCalls();
        void* const core =
            dlopen("installed/PluginFiles/PluginCore.framework/PluginCore", RTLD_NOW | RTLD_NOLOAD);
        if (core == nullptr) return;
        const auto getState = reinterpret_cast<ScriptedPluginCoreGetStateFunction>(
            dlsym(core, "ScriptedPluginCore_GetState"));
        for (const std::string& call : getState()->calls) std::printf("  core %s\n", call.c_str());
        getState()->calls.clear();
    }

    PluginEntry mEntry = nullptr;
};

// A dialog in each situation: only one within the period, with a title that has a hint, is sent an
// event.
void PlayDialogs(Run& run, const std::function<void()>& action)
{
    FakeWindow window("Missing Fonts");
    window.onSendEvent = action;
    run.Session("before the start", window);
    run.Interface("Startup");
    run.Session("without a file", window);
    run.Check("/b.ai");
    FakeWindow other("Missing Fonts", "NSWindow");
    run.Session("of another class", other);
    FakeWindow untitled("Save");
    run.Session("of another title", untitled);
    run.Check("/b.ai");
    run.Session("of missing fonts", window);
    FakeWindow japanese(
        "\xE7\x92\xB0\xE5\xA2\x83\xE3\x81\xAB\xE7\x84\xA1\xE3\x81\x84"
        "\xE3\x83\x95\xE3\x82\xA9\xE3\x83\xB3\xE3\x83\x88");
    run.Session("in Japanese", japanese);
    run.Interface("Shutdown");
    run.Session("after the end", window);
}

void Play(const std::string& scenario, Run& run)
{
    if (scenario == "dialogs") return PlayDialogs(run, nullptr);
    if (scenario == "throwing-window") {
        return PlayDialogs(run, [] { throw ModalWindowException("the window is gone"); });
    }
    if (scenario == "refused-suite") run.host.RefuseSuite("AI Timer Suite", 1005, kCode);
    run.Interface("Startup");
    run.Notify("AI Document Opened Notifier");
    run.Check("/a.ai");
    // The operation whose failure the plug-in throws, by its name: int, ATE::Exception, ai::Error.
    if (scenario.find('.') != std::string::npos) run.host.FailCall(scenario, 1, kCode);
    run.Notify("AI Document Opened Notifier");
    run.Notify("AI Document Changed Notifier");
    run.Check("/a.ai");
    run.Notify("AI Document Opened Notifier");
    run.Interface("About");
    run.Interface("Shutdown");
}

}  // namespace

int main(int count, char** arguments)
{
    std::string folder;
    for (int index = 2; index + 1 < count; ++index) {
        if (std::strcmp(arguments[index], "--plugin") == 0) folder = arguments[index + 1];
    }
    if (folder.empty()) return 2;
    // A line that is written by the plug-in comes in its place.
    (void)std::setvbuf(stdout, nullptr, _IONBF, 0);
    Run run(folder);
    Play(arguments[1], run);
    run.Finish();
}
