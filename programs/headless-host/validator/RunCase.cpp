#include "validator/RunCase.h"

#include "validator/ScriptPlayer.h"

namespace headless {

CaseOutcome RunCase(const ValidatorCase& which, const std::string& plugin,
                    const std::string& folder)
{
    return PlayScript(which, plugin, folder + "/world",
                      which.wantsJournal ? folder + "/journal" : std::string());
}

}  // namespace headless
