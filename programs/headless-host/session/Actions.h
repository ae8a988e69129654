#pragma once

#include "session/Session.h"
#include "session/SessionWords.h"

// The actions of scripts, except `expect` and `help`. ActionTable.cpp describes what each does, how
// many arguments it takes and whether it needs a current document: their callers check that.
namespace headless {

LineResult RunOpen(Session& session, const Words& arguments);
LineResult RunNew(Session& session, const Words& arguments);
LineResult RunText(Session& session, const Words& arguments);
LineResult RunPlace(Session& session, const Words& arguments);
LineResult RunChange(Session& session, const Words& arguments);
LineResult RunSave(Session& session, const Words& arguments);
LineResult RunCurrent(Session& session, const Words& arguments);
LineResult RunClose(Session& session, const Words& arguments);
LineResult RunShow(Session& session, const Words& arguments);
LineResult RunMenu(Session& session, const Words& arguments);
LineResult RunTick(Session& session, const Words& arguments);
LineResult RunPanel(Session& session, const Words& arguments);
LineResult RunFontsChanged(Session& session, const Words& arguments);
LineResult RunAbout(Session& session, const Words& arguments);
LineResult RunWait(Session& session, const Words& arguments);
LineResult RunExec(Session& session, const Words& arguments);
LineResult RunFail(Session& session, const Words& arguments);
LineResult RunQuit(Session& session, const Words& arguments);

}  // namespace headless
