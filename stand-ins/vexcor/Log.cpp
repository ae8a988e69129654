#include "Log.h"

namespace vexcor {

void OpenLog(const std::string&) {}
void LogProblem(const std::string&) {}
void LogAction(const std::string&) {}

}  // namespace vexcor
