#pragma once

#include "session/Session.h"
#include "session/SessionWords.h"

// Actions and expectations of scripts about single messages and what the plug-in has registered.
// The tables in ActionTable.cpp and ExpectAction.cpp describe them.
namespace headless {

LineResult RunSend(Session& session, const Words& arguments);
LineResult RunRemember(Session& session, const Words& arguments);
LineResult RunAskPort(Session& session, const Words& arguments);

LineResult ExpectAnswer(Session& session, const Words& arguments);
LineResult ExpectAlert(Session& session, const Words& arguments);
LineResult ExpectPort(Session& session, const Words& arguments);
LineResult ExpectUnchanged(Session& session, const Words& arguments);
LineResult ExpectUnique(Session& session, const Words& arguments);

}  // namespace headless
