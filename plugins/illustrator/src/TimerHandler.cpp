#include "TimerHandler.h"

#include <cstdint>
#include <string>

#include "DebugUtils.h"
#include "HostSuites.h"
#include "PCILoader.h"
#include "PluginStartup.h"
#include "TypeloftSPEA.h"

namespace {

constexpr char kTimerSuiteName[] = "AI Timer Suite";
constexpr int kTimerSuiteVersion = 1005;
constexpr char kTimerName[] = "Corvanta AIPlugin Timer";
constexpr int32_t kSmallestPeriod = 1;

constexpr char kPortRequestType[] = "com.corvanta.portnumberrequest";
constexpr char kPortResponseType[] = "com.corvanta.portnumberresponse";

SDKPlugPlug sPPLib;
bool registeredListener = false;

// Runs `action` with the suite; a code that it throws becomes the result.
template <class Action>
AIErr WithTimerSuite(Action action)
{
    AIErr result = kHostSuccess;
    AITimerSuite* timers = nullptr;
    try {
        AcquireSuite(kTimerSuiteName, kTimerSuiteVersion, &timers);
        action(*timers);
    } catch (int error) {
        result = error;
    }
    ReleaseSuite(kTimerSuiteName, kTimerSuiteVersion, &timers);
    return result;
}

}  // namespace

AIErr AddTimers(SPInterfaceMessage* message)
{
    OutputIndentedAndFormattedString(1, "Entering %s", "AddTimers");
    const AIErr result = WithTimerSuite([message](const AITimerSuite& timers) {
        ThrowAIErr(
            timers.AddTimer(message->d.self, kTimerName, kSmallestPeriod, &gGlobals->timerHandle));
    });
    OutputIndentedAndFormattedString(-1, "%s returning %d", "AddTimers", result);
    return result;
}

// Runs for the whole session at the host's smallest period: no trace and no allocation.
int GoTimer(AITimerMessage* /*message*/)
{
    PCILoader* const core = PCILoader::GetSharedInstance();
    if (core == nullptr) return 0;
    // The next tick comes in any case, and tries again what failed.
    (void)StartPlugPlug();
    (void)core->pfIdleEvent();
    (void)core->pfProcessPanelMessages(1);
    return 0;
}

AIErr RemoveTimers()
{
    OutputIndentedAndFormattedString(1, "Entering %s", "RemoveTimers");
    const AIErr result = WithTimerSuite([](const AITimerSuite& timers) {
        if (gGlobals == nullptr || gGlobals->timerHandle == nullptr) return;
        bool isActive = false;
        ThrowAIErr(timers.GetTimerActive(gGlobals->timerHandle, &isActive));
        if (isActive) ThrowAIErr(timers.SetTimerActive(gGlobals->timerHandle, false));
    });
    OutputIndentedAndFormattedString(-1, "%s returning %d", "RemoveTimers", result);
    return result;
}

unsigned int StartPlugPlug()
{
    if (registeredListener) return 0;
    const int loaded = sPPLib.Load();
    if (loaded != 0) return static_cast<unsigned int>(loaded);
    const int added = sPPLib.AddEventListener(kPortRequestType, PortRequested, nullptr);
    // PluginCore shares the binding whether or not the listener stands, and its answer doesn't
    // count.
    (void)PCILoader::GetSharedInstance()->pfRegisterPlugPlug(&sPPLib);
    if (added == 0) {
        registeredListener = true;
        sendPortEvent();
    }
    return 0;
}

void PortRequested(const csxs::event::Event* /*event*/, void* /*context*/) { sendPortEvent(); }

void sendPortEvent()
{
    // The event points into it, also after the dispatch.
    static std::string xmlString;

    int port = 0;
    if (PCILoader::GetSharedInstance()->pfGetSocketPort(&port) != 0) return;
    xmlString =
        "<payload><number>" + std::to_string(static_cast<uint32_t>(port)) + "</number></payload>";
    csxs::event::Event event = {};
    event.type = kPortResponseType;
    event.scope = csxs::event::kEventScopeApplication;
    event.appId = "test";
    event.data = xmlString.c_str();
    // A panel that didn't get it asks again.
    (void)sPPLib.DispatchEvent(&event);
}
