#define MAKES_EXTRA_CALL
#include "../makes-calls/plugin.cpp"
