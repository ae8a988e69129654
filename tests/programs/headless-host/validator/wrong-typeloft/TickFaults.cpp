#include "Fault.h"
#include "TimerHandler.h"

// Ticks, and the port for the panel.
namespace wrong {

namespace {

bool sHasBus = false;
bool sIsInMessage = false;  // other than a tick

unsigned int GiveIdleTimeTwice()
{
    (void)core::IdleEvent();
    return core::IdleEvent();
}

unsigned int NoteBus(SDKPlugPlug* plugPlug)
{
    sHasBus = true;
    return core::RegisterPlugPlug(plugPlug);
}

unsigned int NeedBus() { return sHasBus ? core::IdleEvent() : 0; }

unsigned int AnnouncePort()
{
    if (sHasBus) sendPortEvent();
    return core::IdleEvent();
}

unsigned int RememberPort(int* outPort)
{
    static int sPort = 0;
    unsigned int status = 0;
    if (sPort == 0) status = core::GetSocketPort(&sPort);
    *outPort = sPort;
    return status;
}

unsigned int AnswerWithoutPort(int* outPort)
{
    (void)core::GetSocketPort(outPort);
    return 0;
}

AIErr NoteMessage(Message& message)
{
    const bool wasInMessage = sIsInMessage;
    sIsInMessage = message.caller != "AI Timer";
    const AIErr result = message.Send();
    sIsInMessage = wasInMessage;
    return result;
}

unsigned int RefusePortInMessage(int* outPort)
{
    return sIsInMessage ? kCoreNotFound : core::GetSocketPort(outPort);
}

}  // namespace

const Fault kTickFaults[] = {{1129, nullptr, WRONG_CORE(IdleEvent, GiveIdleTimeTwice)},
                             {1301, nullptr,
                              [](PCILoader& loader) {
                                  loader.pfRegisterPlugPlug = NoteBus;
                                  loader.pfIdleEvent = NeedBus;
                              }},
                             {1302, nullptr,
                              [](PCILoader& loader) {
                                  loader.pfRegisterPlugPlug = NoteBus;
                                  loader.pfIdleEvent = AnnouncePort;
                              }},
                             {1303, nullptr, WRONG_CORE(GetSocketPort, RememberPort)},
                             {1304, nullptr, WRONG_CORE(GetSocketPort, AnswerWithoutPort)},
                             {1307, NoteMessage, WRONG_CORE(GetSocketPort, RefusePortInMessage)},
                             {0, nullptr, nullptr}};

}  // namespace wrong
