#include "system/Environment.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

namespace headless {

namespace {

namespace fs = std::filesystem;

constexpr char kStateVariable[] = "XDG_STATE_HOME";
constexpr char kStateBelowHome[] = ".local/state";

// $`variable`, else $HOME/`belowHome`. Relative paths are ignored, as the XDG specification wants.
fs::path GetUserFolder(const char* variable, const char* belowHome)
{
    const char* const folder = std::getenv(variable);
    if (folder != nullptr && *folder == '/') return folder;
    const char* const home = std::getenv("HOME");
    if (home != nullptr && *home == '/') return fs::path(home) / belowHome;
    return {};
}

}  // namespace

void SetEnvironment(const char* name, const std::string& value)
{
    // Fails only without memory or for a name with '='.
    (void)setenv(name, value.c_str(), 1);
}

bool UseHome(const std::string& folder, std::string& error)
{
    constexpr struct {
        const char* name;
        const char* below;
    } kFolders[] = {{"HOME", ""},
                    {"XDG_DATA_HOME", ".local/share"},
                    {"XDG_CONFIG_HOME", ".config"},
                    {"XDG_CACHE_HOME", ".cache"},
                    {kStateVariable, kStateBelowHome}};
    for (const auto& row : kFolders) {
        const fs::path path = *row.below == '\0' ? fs::path(folder) : fs::path(folder) / row.below;
        std::error_code code;
        (void)fs::create_directories(path, code);  // false if the folder already exists
        if (!code && !fs::is_directory(path)) {
            code = std::make_error_code(std::errc::not_a_directory);
        }
        if (code) {
            error = path.string() + ": " + code.message();
            return false;
        }
        SetEnvironment(row.name, path.string());
    }
    return true;
}

std::string GetStateFolder()
{
    const fs::path folder = GetUserFolder(kStateVariable, kStateBelowHome);
    std::error_code error;
    if (!folder.empty()) (void)fs::create_directories(folder, error);  // false if it exists
    return error ? std::string() : folder.string();
}

std::string GetDraftRecordFolder()
{
    const fs::path state = GetUserFolder(kStateVariable, kStateBelowHome);
    return state.empty() ? std::string() : (state / "headless-host/saves").string();
}

std::string GetDataFolder() { return GetUserFolder("XDG_DATA_HOME", ".local/share").string(); }

bool IsTerminal(int descriptor) { return isatty(descriptor) == 1; }

}  // namespace headless
