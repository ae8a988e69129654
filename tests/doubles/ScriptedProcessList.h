#pragma once

#include <string>
#include <vector>

// Replaces the system's list of running executables in a program that links this with the link
// options of its library. Starts empty; each test has to reset it.
std::vector<std::string>& ScriptedExecutables();
