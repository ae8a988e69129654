// The table that a host executable exports. Its functions use the current scripted host.

#include "HostPlatform_Linux.h"
#include "ScriptedHost.h"

namespace {

ModalSession BeginModalSession(ModalWindow* window)
{
    ScriptedHost& host = ScriptedHost::Current();
    host.modalSessions.push_back(window);
    return reinterpret_cast<ModalSession>(0x5E5510 + host.modalSessions.size());
}

void ShowAlert(const char* messageText, const char* informativeText)
{
    ScriptedHost& host = ScriptedHost::Current();
    host.alerts.push_back({messageText, informativeText});
    (void)host.Record("HostPlatform.showAlert",
                      Quoted(messageText) + ", " + Quoted(informativeText));
}

}  // namespace

extern "C" __attribute__((visibility("default"))) SHostPlatform* GetHostPlatform()
{
    // One table for all tests, because the plug-in replaces a slot of it and never restores it.
    static SHostPlatform platform = {BeginModalSession, ShowAlert, ""};
    platform.privateFrameworksPath = ScriptedHost::Current().privateFrameworksPath.c_str();
    return &platform;
}
