#include "../PluginSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    void* suite = nullptr;
    (void)plugin::basic->AcquireSuite("AI Font Suite", 1006, &suite);
    (void)plugin::basic->ReleaseSuite("AI Font Suite", 1006);
    (void)plugin::basic->ReleaseSuite("AI Font Suite", 1006);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
