#pragma once

// Makes sure that the process has a display for its windows. Idempotent.
void EnterDisplay();
