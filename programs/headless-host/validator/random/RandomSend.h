#pragma once

#include <string>

#include "validator/random/RandomNumbers.h"

namespace headless {

// A random line `send CALLER SELECTOR KEY=VALUE...`. It is never the message that ends the plug-in
// or unloads it, after which a host sends no other one.
//
// documents    the number of documents that are open
// isTypeloft   whether the plug-in has registered the notifiers and menu items of ours
std::string MakeSendLine(RandomNumbers& random, size_t documents, bool isTypeloft);

}  // namespace headless
