#include "TypeloftSPEA.h"

// The entry of the module, on every platform: the file's name is older than the Linux build.
extern "C" __attribute__((visibility("default"))) AIErr PluginMain(char* caller, char* selector,
                                                                   void* message)
{
    return Main(caller, selector, message);
}
