#pragma once

// Gives the process a display for its windows, if it hasn't got one anyway.
void EnterDisplay();
