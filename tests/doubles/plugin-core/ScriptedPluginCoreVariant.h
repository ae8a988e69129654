#pragma once

// The name of the fault that this build of the scripted PluginCore has; each library is built with
// a definition of its own.
const char* ScriptedPluginCoreVariant();
