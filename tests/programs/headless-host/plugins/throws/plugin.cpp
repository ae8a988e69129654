#include "../PluginSupport.h"

namespace {

void OnOpened(_t_AIDocument*) { throw 1; }

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
