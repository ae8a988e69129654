#pragma once

#include <string>
#include <vector>

// Stands in for the system's list of processes: a program that links this, with the options of its
// library, sees no live process. Each test begins with what it sets here.
std::vector<std::string>& ScriptedExecutables();
