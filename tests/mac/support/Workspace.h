#pragma once

#include <string>
#include <vector>

// Sets the running applications that the workspace of the test programs lists. `executables` holds
// the paths of their executables in order, "" for an application without an executable.
void SetRunningApplications(const std::vector<std::string>& executables);
