#pragma once

// Shows one modal alert with the default button alone and returns 0 when it is dismissed. Both
// texts are UTF-8; a null one counts as empty. Main thread.
int SimpleAlert(char const* messageText, char const* informativeText);
