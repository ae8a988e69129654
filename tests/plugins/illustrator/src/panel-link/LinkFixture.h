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

// The link never goes down again in a process, so each body with a link has a process of its own.
class LinkTest : public MessageTest {
protected:
    LinkTest() { Start(); }

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
