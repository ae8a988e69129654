#include "TypeloftSPEA.h"

extern "C" __attribute__((visibility("default"))) AIErr PluginMain(char* caller, char* selector,
                                                                   void* message)
{
    return Main(caller, selector, message);
}
