#pragma once

#include <string>

namespace vexcor {

// The README of the program's folder, made from the tables that the program is run by.
std::string WriteReadme();

}  // namespace vexcor
