#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace plugincore {

// The user's settings: a JSON file, an object whose members are strings. What the file doesn't say
// has its default. The file is read only, and read again when it has changed.
class Settings {
public:
    // All settings as one JSON object, defaults included. A broken file is told once on standard
    // error, by name and reason, and counts as one without members; a member that isn't a string is
    // told and left out.
    std::string GetAsJson(const std::filesystem::path& file);

    // One setting, empty if neither the file nor the defaults have it.
    std::string Get(const std::filesystem::path& file, const std::string& key);

private:
    void Refresh(const std::filesystem::path& file);
    void Read(const std::filesystem::path& file);

    std::map<std::string, std::string> mValues;
    std::string mState;  // of the file when it was read
};

}  // namespace plugincore
