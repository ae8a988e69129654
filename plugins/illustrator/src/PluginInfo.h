#pragma once

#include <string>

// What the plug-in knows of its own bundle. Main thread.
struct PluginInfo {
    static std::string bundleIdentifier;  // empty: nothing sets it

    // The path of the bundle with this identifier, or of the one named by bundleIdentifier if null
    // is given; a placeholder if there is no such bundle.
    static std::string GetPluginPath(char const* bundleIdentifier);

    static std::string GetPluginBundleIdentifier();
};

// The path of the loaded bundle with this identifier; false if there is none, as for an empty one.
bool OSGetBundlePath(const std::string& bundleIdentifier, std::string& path);
