#pragma once

// Returns the name of this build's fault, or of the build if it has none. Each library is built
// with its own SCRIPTED_PLUGIN_CORE_VARIANT.
const char* ScriptedPluginCoreVariant();
