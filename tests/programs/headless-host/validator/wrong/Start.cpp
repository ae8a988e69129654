#include "Start.h"

#include <dlfcn.h>

#include <set>

#include "Faults.h"
#include "HostPlatform_Linux.h"
#include "Suites.h"

namespace wrong {

namespace {

const char* const kNotifiers[] = {
    "AI Document Opened Notifier",        "AI Document New Notifier",
    "AI Document Changed Notifier",       "AI Document About To Close Notifier",
    "AI Document Closed Notifier",        "AI Command Notifier: After Save",
    "AI Command Notifier: After Save As", "AI Font List Changed Notifier",
    "AI Application Shutdown Notifier"};

// Faults.
constexpr int kSwallowsSession = 1201;
constexpr int kKeepsSession = 1202;

constexpr int32_t kWantsUpdate = 1;
constexpr int32_t kTypeCode = 0x54455354;

std::set<AINotifierHandle> sNotifiers;
AITimerHandle sTimer = nullptr;
AIMenuItemHandle sItem = nullptr;
BeginModalSessionFunction sRealSession = nullptr;

ModalSession BeginSession(ModalWindow* window)
{
    life.sawDialog = true;
    if (HasFault(kSwallowsSession)) return window;
    const ModalSession session = sRealSession(window);
    return HasFault(kKeepsSession) ? nullptr : session;
}

void ReplaceSession()
{
    using GetPlatform = SHostPlatform* (*)();
    const auto get = reinterpret_cast<GetPlatform>(dlsym(RTLD_DEFAULT, "GetHostPlatform"));
    if (get == nullptr || get()->beginModalSession == BeginSession) return;
    sRealSession = get()->beginModalSession;
    get()->beginModalSession = BeginSession;
}

void AddNotifiers()
{
    const Suite<AINotifierSuite> suite("AI Notifier Suite", 1004);
    for (const char* const type : kNotifiers) {
        AINotifierHandle notifier = nullptr;
        Note("AddNotifier", suite->AddNotifier(life.data->self, "wrong", type, &notifier));
        if (notifier != nullptr) sNotifiers.insert(notifier);
    }
}

void AddTimer()
{
    const Suite<AITimerSuite> suite("AI Timer Suite", 1005);
    Note("AddTimer", suite->AddTimer(life.data->self, "wrong", 1, &sTimer));
}

void AddFormat()
{
    const Suite<AIFileFormatSuite> suite("AI File Format Suite", 1015);
    struct {
        int32_t numTypes;
        int32_t* typeList;
        void* title;
        int32_t titleOrder;
        void* extensions;
    } data = {1, nullptr, nullptr, 0, nullptr};
    static_assert(sizeof data == sizeof(PlatformAddFileFormatExData));
    int32_t type = kTypeCode;
    data.typeList = &type;
    AIFileFormatHandle format = nullptr;
    Note("AddFileFormatEx",
         suite->AddFileFormatEx(life.data->self, "wrong",
                                reinterpret_cast<PlatformAddFileFormatExData*>(&data), 1, &format,
                                0));
}

void AddItem()
{
    const Suite<AIMenuSuite> menus("AI Menu Suite", 1011);
    const Suite<AIUnicodeStringSuite> strings("AI Unicode String Suite", 1008);
    Word text(DestroyString);
    const AIErr status = strings->Initialize(&text.As<ai::UnicodeString>(), "Wrong", 5,
                                             kAIPlatformCharacterEncoding);
    Note("Initialize", status);
    if (status != kHostSuccess) return;
    struct {
        const char* group;
        void* text;
    } data = {"Type", text.Get()};
    static_assert(sizeof data == sizeof(AIPlatformAddMenuItemDataUS));
    Note("AddMenuItem", menus->AddMenuItem(life.data->self, "Wrong",
                                           reinterpret_cast<AIPlatformAddMenuItemDataUS*>(&data),
                                           kWantsUpdate, &sItem));
}

}  // namespace

AIErr Start()
{
    SPMessageData* const data = life.data;
    const std::string caller = life.caller;
    const std::string selector = life.selector;
    life = Life();
    life.data = data;
    life.caller = caller;
    life.selector = selector;
    sNotifiers.clear();
    sTimer = nullptr;
    sItem = nullptr;
    if (!HasKnownName()) return kHostBadParameter;
    // Those that are used later.
    const Suite<AIDocumentSuite> documents("AI Document Suite", 1017);
    const Suite<AIFilePathSuite> paths("AI File Path Suite", 1006);
    const Suite<SPBlocksSuite> blocks("SP Blocks Suite", 2);
    Tell(Moment::kStarting);
    if (!life.maySucceed) return kHostSuccess;
    AddNotifiers();
    AddTimer();
    AddFormat();
    AddItem();
    ReplaceSession();
    life.isRunning = true;
    data->globals = &life;
    return kHostSuccess;
}

AIMenuItemHandle GetItem() { return sItem; }

bool IsOwnNotifier(AINotifierHandle notifier) { return sNotifiers.count(notifier) > 0; }

void StopTimer()
{
    if (sTimer == nullptr) return;
    const Suite<AITimerSuite> suite("AI Timer Suite", 1005);
    bool isActive = false;
    Note("GetTimerActive", suite->GetTimerActive(sTimer, &isActive));
    Note("SetTimerActive", suite->SetTimerActive(sTimer, false));
}

}  // namespace wrong
