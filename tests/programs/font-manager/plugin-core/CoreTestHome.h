#pragma once

#include <filesystem>
#include <string>

#include "FontTestHome.h"
#include "PluginCoreFunctions.h"

// The loaded framework in a home of its own. The functions are those that it exports.
class Framework {
public:
    Framework();

#define DECLARE(name) name##Function p##name = nullptr;
    PLUGIN_CORE_FUNCTIONS(DECLARE)
#undef DECLARE

    bool Start() const;

    // The text that HandleOpenExistingDocument leaves for the fonts that come in.
    std::string Open(const std::string& path, const std::string& fontsJson) const;

    // Opens, resolves and activates as the plug-in does; the status of the activation.
    unsigned int OpenAndActivate(const std::string& path, const std::string& fontsJson) const;

private:
    void* mLibrary;
};

// A font list as it crosses.
std::string MakeFontList(const std::vector<std::string>& names);

// The files of the activation folder, hidden ones too.
std::vector<std::filesystem::path> ListActivationFolder(const FontTestHome& home);
