#include "TimerHandler.h"

#include <cstdint>
#include <string>

#include "HandlerTrace.h"
#include "HostSuites.h"
#include "PCILoader.h"
#include "PluginGlobals.h"

namespace {

constexpr char kTimerSuiteName[] = "AI Timer Suite";
constexpr int kTimerSuiteVersion = 1005;
constexpr char kTimerName[] = "Corvanta AIPlugin Timer";
constexpr int32_t kSmallestPeriod = 1;  // as often as the host can

constexpr char kPortRequestType[] = "com.corvanta.portnumberrequest";
constexpr char kPortResponseType[] = "com.corvanta.portnumberresponse";

SDKPlugPlug sPPLib;
bool registeredListener = false;

// Calls `action` with the suite. Returns 0, or the host's code that was thrown as an int.
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
    return TraceHandler("AddTimers", [message] {
        return WithTimerSuite([message](const AITimerSuite& timers) {
            ThrowAIErr(timers.AddTimer(message->d.self, kTimerName, kSmallestPeriod,
                                       &gGlobals->timerHandle));
        });
    });
}

// Called very often during the whole session, so it must neither trace nor allocate.
int GoTimer(AITimerMessage* /*message*/)
{
    PCILoader* const core = PCILoader::GetSharedInstance();
    if (core == nullptr) return 0;
    // The next tick repeats all three, so their failures are ignored.
    (void)StartPlugPlug();
    (void)core->pfIdleEvent();
    (void)core->pfProcessPanelMessages(1);
    return 0;
}

AIErr RemoveTimers()
{
    return TraceHandler("RemoveTimers", [] {
        return WithTimerSuite([](const AITimerSuite& timers) {
            if (gGlobals == nullptr || gGlobals->timerHandle == nullptr) return;
            bool isActive = false;
            ThrowAIErr(timers.GetTimerActive(gGlobals->timerHandle, &isActive));
            if (isActive) ThrowAIErr(timers.SetTimerActive(gGlobals->timerHandle, false));
        });
    });
}

unsigned int StartPlugPlug()
{
    if (registeredListener) return 0;
    const int loaded = sPPLib.Load();
    if (loaded != 0) return static_cast<unsigned int>(loaded);
    const int added = sPPLib.AddEventListener(kPortRequestType, PortRequested, nullptr);
    // PluginCore uses the bus whether or not the listener was added. Its status changes nothing
    // here.
    (void)PCILoader::GetSharedInstance()->pfRegisterPlugPlug(&sPPLib);
    if (added == 0) {
        registeredListener = true;
        sendPortEvent();
    }
    return 0;
}

void PortRequested(const csxs::event::Event* /*event*/, void* /*context*/)
{
    try {
        sendPortEvent();
    } catch (...) {
        // The caller is the event bus, whose code is C: no exception may reach it. The panel asks
        // again.
        return;
    }
}

void sendPortEvent()
{
    // Static because the event points to it, even after the dispatch.
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
    // A panel that doesn't receive the event asks again.
    (void)sPPLib.DispatchEvent(&event);
}
