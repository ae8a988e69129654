#include "TypeloftSPEA.h"

// The entry of the module: one source for all platforms, in spite of its name.
extern "C" __attribute__((visibility("default"))) AIErr PluginMain(char* caller, char* selector,
                                                                   void* message)
{
    return Main(caller, selector, message);
}
