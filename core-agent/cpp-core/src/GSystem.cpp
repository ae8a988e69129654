#include "GSystem.h"

bool GSystem::IsMacOSX()
{
    static const int os = OSGetSystem();
    return os == 0;
}

bool GSystem::IsWindows()
{
    static const int os = OSGetSystem();
    return os == 1 || os == 2;
}
