#pragma once

#include <string>
#include <vector>

#include "FreshProcess.h"
#include "MessageFixture.h"
#include "ScriptedPlugPlugLibrary_Linux.h"
#include "TimerHandler.h"

inline const char* const kRequest = "com.corvanta.portnumberrequest";
inline const char* const kResponse = "com.corvanta.portnumberresponse";

inline std::string Payload(const std::string& number)
{
    return "<payload><number>" + number + "</number></payload>";
}

// A process never closes the link, so each test that opens it runs its body in a new process.
class LinkFixture : public MessageFixture {
protected:
    LinkFixture() { Start(); }

    void UseFrameworks(const std::string& variant)
    {
        host.privateFrameworksPath = ScriptedPlugPlugFolder(variant);
    }
    AIErr SendTick()
    {
        AITimerMessage message = host.TimerMessage();
        return host.Send(Main, "AI Timer", "AI Go", message);
    }
};
