#include "plugin-core/storage/Locations.h"

#include <algorithm>
#include <cstdlib>

#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;

namespace plugincore {
namespace {

std::string GetVariable(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

fs::path GetFolder(const char* variable, const char* belowHome)
{
    fs::path folder = GetVariable(variable);
    if (folder.is_absolute()) return folder;
    const fs::path home = GetVariable("HOME");
    if (!home.is_absolute()) {
        throw Failure(StatusCodes::kError,
                      std::string("no home folder: neither ") + variable + " nor HOME is set");
    }
    return home / belowHome;
}

// Splits the text at colons. A backslash before a colon or a backslash makes it a part of the name;
// any other backslash is one itself.
std::vector<std::string> SplitFolders(const std::string& text)
{
    std::vector<std::string> parts(1);
    for (size_t at = 0; at < text.size(); ++at) {
        const bool isEscape = text[at] == '\\' && at + 1 < text.size() &&
                              (text[at + 1] == ':' || text[at + 1] == '\\');
        if (isEscape) ++at;
        if (text[at] == ':' && !isEscape) {
            parts.emplace_back();
        } else {
            parts.back() += text[at];
        }
    }
    return parts;
}

std::vector<std::string> GetLibrariesOfEnvironment()
{
    std::vector<std::string> folders;
    for (const std::string& part : SplitFolders(GetVariable("CORVANTA_FONT_LIBRARY"))) {
        if (part.empty()) continue;
        // One spelling for each folder: "/a/b/" and "/a//b" are "/a/b".
        fs::path folder = fs::absolute(part).lexically_normal();
        if (!folder.has_filename() && folder.has_relative_path()) folder = folder.parent_path();
        if (std::find(folders.begin(), folders.end(), folder) == folders.end()) {
            folders.push_back(folder);
        }
    }
    return folders;
}

}  // namespace

Locations GetLocations()
{
    const fs::path data = GetFolder("XDG_DATA_HOME", ".local/share");
    Locations result;
    result.database = data / "Corvanta/fonts.db";
    result.launchInformation = data / "Corvanta/com.corvanta.Vexcor-LaunchInfo.conf";
    result.activationFolder = data / "fonts/corvanta";
    result.settings = GetFolder("XDG_CONFIG_HOME", ".config") / "Corvanta/settings.json";
    result.panelToken = GetFolder("XDG_STATE_HOME", ".local/state") / "Corvanta/panel-token";
    result.libraries = GetLibrariesOfEnvironment();
    result.librariesAreDefault = result.libraries.empty();
    if (result.librariesAreDefault) result.libraries.push_back(data / "Corvanta/Library");
    return result;
}

}  // namespace plugincore
