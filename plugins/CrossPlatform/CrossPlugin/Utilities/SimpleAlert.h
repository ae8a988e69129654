#pragma once

// Shows a modal alert with only the default button and waits until it is dismissed. Returns 0.
//
// Both texts are zero-terminated UTF-8; null is the same as "". On Linux the host shows the alert;
// if it offers no way to, the texts are written to standard error. [main-thread]
int SimpleAlert(char const* messageText, char const* informativeText);
