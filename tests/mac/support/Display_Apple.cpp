#include "Display.h"

void EnterDisplay() {}
