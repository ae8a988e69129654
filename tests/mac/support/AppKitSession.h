#pragma once

// Makes the process an application that can show windows. Idempotent. Throws std::logic_error in a
// child of fork() that has not called exec: macOS forbids AppKit there.
void StartApplication();
