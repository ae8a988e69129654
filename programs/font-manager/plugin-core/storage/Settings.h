#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace plugincore {

// The user's settings: a JSON file, an object whose members are strings. What the file doesn't say
// has its default. The file is read again when it has changed.
class Settings {
public:
    // All settings as one JSON object, defaults included. A broken file is told once on standard
    // error, by name and reason, and counts as one without members; a member that isn't a string is
    // told and left out.
    std::string GetAsJson(const std::filesystem::path& file);

    // One setting, empty if neither the file nor the defaults have it.
    std::string Get(const std::filesystem::path& file, const std::string& key);

    // Writes one setting into the file, which is made if it isn't there; it holds the old text or
    // the new at any moment, and what else stands in it stays. Throws Failure, and leaves the file
    // alone, if it can't be written or isn't a JSON object.
    void Set(const std::filesystem::path& file, const std::string& key, const std::string& value);

private:
    void Refresh(const std::filesystem::path& file);
    void Read(const std::filesystem::path& file);

    std::map<std::string, std::string> mValues;
    std::string mState;  // of the file when it was read
};

}  // namespace plugincore
