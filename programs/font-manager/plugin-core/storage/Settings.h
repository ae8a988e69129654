#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace plugincore {

// "0" disables the plug-in; any other text, or none, enables it.
constexpr const char* kEnabledSetting = "PluginEnabled";

// The user's settings: a file with a JSON object whose members are strings. Settings that it
// doesn't have get their defaults. Each call reads the file again if it has changed.
//
// A file that can't be used is logged once and treated as one without members. A member that isn't
// a string is logged and ignored. [main-thread]
class Settings {
public:
    // All settings, defaults included, as one JSON object.
    std::string GetAsJson(const std::filesystem::path& file);

    // One setting; "" if neither the file nor the defaults have it.
    std::string Get(const std::filesystem::path& file, const std::string& key);

    // Writes one setting and keeps the other members. Replaces the file atomically and creates it
    // if it doesn't exist. Throws Failure and leaves the file unchanged if it can't be written or
    // isn't a JSON object.
    void Set(const std::filesystem::path& file, const std::string& key, const std::string& value);

private:
    void Refresh(const std::filesystem::path& file);
    void Read(const std::filesystem::path& file);

    std::map<std::string, std::string> mValues;
    std::string mState;  // of the file when it was read
};

}  // namespace plugincore
