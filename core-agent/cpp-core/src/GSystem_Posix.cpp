#include "GSystem.h"

#include <unistd.h>

int GSystem::OSGetSystem() { return 0; }

void GSystem::OSSleep(unsigned int milliseconds)
{
    // Fails only if a signal interrupts it; callers accept a shorter sleep.
    (void)usleep(milliseconds * 1000U);
}
