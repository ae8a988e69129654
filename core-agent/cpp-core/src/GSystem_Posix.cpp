#include "GSystem.h"

#include <unistd.h>

int GSystem::OSGetSystem() { return 0; }

void GSystem::OSSleep(unsigned int milliseconds)
{
    // A sleep that a signal cuts short is short.
    (void)usleep(milliseconds * 1000u);
}
