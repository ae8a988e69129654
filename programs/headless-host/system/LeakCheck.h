#pragma once

namespace headless {

// Looks for memory of this process that nothing points to any more. Returns whether there is some;
// a report about it is on standard error then. Always false in builds without AddressSanitizer, and
// where its leak checker is switched off (ASAN_OPTIONS=detect_leaks=0).
bool HasLostMemory();

}  // namespace headless
