#pragma once

#include <string>

namespace headless {

// The manual page headless-host(1), in the man macros.
std::string WriteManualPage();

// The same tables as a page in Markdown, for the README.
std::string WriteReadme();

}  // namespace headless
