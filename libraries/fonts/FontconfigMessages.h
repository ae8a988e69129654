#pragma once

#include <functional>
#include <string>

// What fontconfig prints about its configuration. It prints to standard error, again whenever a
// configuration is loaded, and has no function to turn that off.
namespace fonts {

// Calls `load`, which calls fontconfig, and keeps the lines that fontconfig prints off standard
// error. Lines that other code prints meanwhile follow after the call. Thread-safe: calls wait for
// each other.
void CollectFontconfigMessages(const std::function<void()>& load);

// The first line that was collected in this process, without "Fontconfig error: ", and how many
// different ones there are besides. Returns "" if there is none. Thread-safe.
std::string GetFontconfigProblem();

}  // namespace fonts
