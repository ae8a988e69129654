#pragma once

#include <string>
#include <vector>

// What the workspace answers for running applications in the test programs: the paths of their
// executables in order, an empty one for an application without any.
void SetRunningApplications(const std::vector<std::string>& executables);
