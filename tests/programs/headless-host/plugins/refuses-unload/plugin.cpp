#include "../PluginSupport.h"

PLUGIN_MAIN(char* caller, char* selector, void* message)
{
    if (std::string(selector) == "Unload") return 1;
    return plugin::Serve(caller, selector, message, nullptr, nullptr);
}
