#pragma once

#include <string>

// Where the plug-in's own bundle is. Main thread.
struct PluginInfo {
    static std::string bundleIdentifier;  // always empty: nothing sets it

    // Returns the path of the loaded bundle with this identifier (null: bundleIdentifier), or the
    // placeholder "./CorvantaFontManagement..." if there is none.
    static std::string GetPluginPath(char const* bundleIdentifier);

    static std::string GetPluginBundleIdentifier();
};

// Writes the path of the loaded bundle with this identifier to `path`. Returns false if there is
// none or the identifier is empty.
bool OSGetBundlePath(const std::string& bundleIdentifier, std::string& path);
