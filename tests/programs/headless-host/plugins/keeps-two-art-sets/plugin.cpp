#include "../PluginSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    plugin::Held<AIArtSetSuite> sets("AI Art Set Suite", 1009);
    AIArtSet set = nullptr;
    (void)sets->NewArtSet(&set);
    (void)sets->NewArtSet(&set);
}

}  // namespace

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    return plugin::Serve(caller, selector, message, OnOpened, nullptr);
}
