#pragma once

#include "session/Session.h"
#include "session/SessionWords.h"

// Actions and expectations of scripts that make calls fail or belong to a simulation. The tables in
// ActionTable.cpp and ExpectAction.cpp describe them.
namespace headless {

LineResult RunFailCall(Session& session, const Words& arguments);
LineResult RunFailCore(Session& session, const Words& arguments);
LineResult RunFailAllocation(Session& session, const Words& arguments);
LineResult RunDuring(Session& session, const Words& arguments);
LineResult RunClock(Session& session, const Words& arguments);

LineResult RunSimulate(Session& session, const Words& arguments);
LineResult RunActive(Session& session, const Words& arguments);
LineResult RunDocument(Session& session, const Words& arguments);
LineResult RunVanish(Session& session, const Words& arguments);
LineResult RunLanguage(Session& session, const Words& arguments);
LineResult RunSuiteVersion(Session& session, const Words& words);
LineResult RunLackSuite(Session& session, const Words& arguments);
LineResult RunLackFunction(Session& session, const Words& arguments);
LineResult RunLackCore(Session& session, const Words& arguments);
LineResult RunLackBus(Session& session, const Words& arguments);
LineResult RunCore(Session& session, const Words& arguments);
LineResult RunAllow(Session& session, const Words& arguments);
LineResult RunCount(Session& session, const Words& arguments);
LineResult RunStart(Session& session, const Words& arguments);
LineResult RunRestart(Session& session, const Words& arguments);

LineResult ExpectRefused(Session& session, const Words& arguments);
LineResult ExpectCore(Session& session, const Words& arguments);

}  // namespace headless
