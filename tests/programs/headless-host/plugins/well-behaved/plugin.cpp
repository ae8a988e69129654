#include <dlfcn.h>

#include "../PluginSupport.h"
#include "HostPlatform_Linux.h"

// Does most of what a plug-in can do, and breaks no rule: adds file formats and notifiers, replaces
// the modal session, keeps a suite from the first message to the shutdown and acquires it again
// afterwards.
namespace {

BeginModalSessionFunction sRealSession = nullptr;
AINotifierHandle sShutdown = nullptr;
bool sHoldsSuite = false;
void* sUserSuite = nullptr;

ModalSession DismissFirst(ModalWindow* window)
{
    if (window->GetTitle().find("Font") != std::string::npos) {
        window->SendEvent({10, 0, 0, 0, 0, window->GetWindowNumber(), "\n", "\n", false, 53});
    }
    return sRealSession(window);
}

void AddFormat(const char* name, int priority)
{
    plugin::Held<AIFileFormatSuite> formats("AI File Format Suite", 1015);
    plugin::Held<AIUnicodeStringSuite> strings("AI Unicode String Suite", 1008);
    struct {
        int32_t numTypes;
        int32_t* typeList;
        void* title;
        int32_t titleOrder;
        void* extensions;
    } data = {0, nullptr, nullptr, 0, nullptr};
    auto* const title = reinterpret_cast<ai::UnicodeString*>(&data.title);
    int32_t type = 0x50444620;
    data.numTypes = 1;
    data.typeList = &type;
    (void)strings->Initialize(title, name, std::char_traits<char>::length(name),
                              kAIPlatformCharacterEncoding);
    AIFileFormatHandle format = nullptr;
    (void)formats->AddFileFormatEx(
        plugin::self, name, reinterpret_cast<PlatformAddFileFormatExData*>(&data), 1, &format, 0);
    (void)formats->SetFileFormatPriority(format, priority);
    (void)strings->Destroy(title);
}

void OnOpened(_t_AIDocument*)
{
    // One art set per scan need not be released.
    plugin::Held<AIArtSetSuite> sets("AI Art Set Suite", 1009);
    AIArtSet set = nullptr;
    (void)sets->NewArtSet(&set);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    auto& data = *static_cast<SPMessageData*>(message);
    plugin::basic = data.basic;
    if (!sHoldsSuite) {
        sHoldsSuite = data.basic->AcquireSuite("AI User Suite", 1017, &sUserSuite) == kHostSuccess;
    }
    const AIErr result = plugin::Serve(caller, selector, message, OnOpened, nullptr);
    if (std::string(caller) == "AI File Format") return -1;
    if (std::string(selector) == "Startup") {
        AddFormat("low", 1);
        AddFormat("high", 10000);
        AddFormat("low again", 1);
        plugin::Held<AINotifierSuite> notifiers("AI Notifier Suite", 1004);
        (void)notifiers->AddNotifier(plugin::self, "Shutdown", "AI Application Shutdown Notifier",
                                     &sShutdown);
        using GetPlatform = SHostPlatform* (*)();
        const auto get = reinterpret_cast<GetPlatform>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
        if (get != nullptr) {
            sRealSession = get()->beginModalSession;
            get()->beginModalSession = DismissFirst;
        }
    }
    if (std::string(caller) == "AI Notifier" &&
        static_cast<AINotifierMessage*>(message)->notifier == sShutdown) {
        (void)data.basic->ReleaseSuite("AI User Suite", 1017);
        sHoldsSuite = false;
        data.globals = nullptr;
    }
    return result;
}
