// A PluginCore for startup-bench: its 26 functions succeed and take almost no time.
#include "PluginCoreFunctions.h"

#define EXPORT extern "C" __attribute__((visibility("default"))) unsigned int

// The plug-in calls the functions with arguments, which these ignore.
#define DEFINE_FUNCTION(name) \
    EXPORT name();            \
    EXPORT name() { return 0; }
#define PluginIsEnabled UnusedPluginIsEnabled
#define CreateMenusFromJSONBuffer UnusedCreateMenusFromJSONBuffer
PLUGIN_CORE_FUNCTIONS(DEFINE_FUNCTION)
#undef PluginIsEnabled
#undef CreateMenusFromJSONBuffer

EXPORT PluginIsEnabled(bool, bool* outEnabled);
EXPORT PluginIsEnabled(bool, bool* outEnabled)
{
    *outEnabled = true;
    return 0;
}

EXPORT CreateMenusFromJSONBuffer(const char*, AddIllustratorMenuFunction callback,
                                 MenuItemHelp* help);
EXPORT CreateMenusFromJSONBuffer(const char*, AddIllustratorMenuFunction callback,
                                 MenuItemHelp* help)
{
    constexpr int kItems = 20;
    for (int item = 0; item < kItems; ++item) {
        // The bench's host adds every item.
        (void)callback("id", "label", "Title", false, true, false, nullptr, help);
    }
    return 0;
}
