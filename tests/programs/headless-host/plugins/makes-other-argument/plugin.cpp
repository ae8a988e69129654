#define TIMER_PERIOD 4
#include "../makes-calls/plugin.cpp"
