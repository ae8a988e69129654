#include "../PluginSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    void* suite = nullptr;
    (void)plugin::basic->AcquireSuite("ATE Spell Suite", 102, &suite);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
