#pragma once

#include <filesystem>
#include <string>

#include "FontTestHome.h"
#include "PluginCoreFunctions.h"

// The loaded framework with its exported functions.
class Framework {
public:
    Framework();

#define DECLARE(name) name##Function p##name = nullptr;
    PLUGIN_CORE_FUNCTIONS(DECLARE)
#undef DECLARE

    bool Start() const;

    // Calls HandleOpenExistingDocument with a font list. Returns the text in the buffer.
    std::string Open(const std::string& path, const std::string& fontsJson) const;

    // Opens, resolves and activates, as the plug-in does. Returns the first status that isn't 0.
    unsigned int OpenAndActivate(const std::string& path, const std::string& fontsJson) const;

private:
    void* mLibrary;
};

// A font list in the form of the interface.
std::string MakeFontList(const std::vector<std::string>& names);

// All entries below the activation folder, hidden ones included.
std::vector<std::filesystem::path> ListActivationFolder(const FontTestHome& home);
