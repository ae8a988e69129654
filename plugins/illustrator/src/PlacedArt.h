#pragma once

#include <string>
#include <vector>

// Appends the path of every file placed in the current document, in the host's order and with
// repeats. Returns 0. Returns CoreErrorCodes::kUnknownError if there is no list of placed art or a
// path is missing; the other paths are appended all the same. Main thread.
int ExamineCurrentDocForPlacedArt(std::vector<std::string>& paths);
