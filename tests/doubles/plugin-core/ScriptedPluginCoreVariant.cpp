#include "ScriptedPluginCoreVariant.h"

const char* ScriptedPluginCoreVariant() { return SCRIPTED_PLUGIN_CORE_VARIANT; }
