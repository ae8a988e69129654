#include "plugin-core/storage/Settings.h"

#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "base/JsonText.h"
#include "plugin-core/storage/AtomicFile.h"
#include "plugin-core/storage/ErrorLog.h"
#include "plugin-core/storage/Failure.h"

namespace fs = std::filesystem;
using nlohmann::json;

namespace plugincore {
namespace {

const std::map<std::string, std::string> kDefaults = {{"DialogSuppression", "1"}};

// Text that differs if the file may have changed.
std::string GetSettingsState(const fs::path& file)
{
    std::error_code error;
    const auto size = fs::file_size(file, error);
    if (error) return file.string() + ": " + error.message();
    const auto modified = fs::last_write_time(file, error).time_since_epoch().count();
    return file.string() + ":" + std::to_string(size) + ":" + std::to_string(modified);
}

}  // namespace

std::string Settings::GetAsJson(const fs::path& file)
{
    Refresh(file);
    return json(mValues).dump();
}

std::string Settings::Get(const fs::path& file, const std::string& key)
{
    Refresh(file);
    const auto found = mValues.find(key);
    return found == mValues.end() ? std::string() : found->second;
}

void Settings::Set(const fs::path& file, const std::string& key, const std::string& value)
{
    json settings = json::object();
    std::error_code error;
    if (fs::status(file, error).type() != fs::file_type::not_found) {
        std::ifstream stream(file, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(stream), {}};
        settings = json::parse(text, nullptr, false);
        if (!settings.is_object()) {
            throw Failure(StatusCodes::kError,
                          file.string() + ": not a JSON object; the file is left unchanged");
        }
    }
    settings[key] = value;
    WriteFileAtomically(file, base::PrintJson(settings, 2) + "\n");
    mState.clear();  // read the file again even if its size and time are the same
}

void Settings::Refresh(const fs::path& file)
{
    const std::string state = GetSettingsState(file);
    if (state == mState) return;
    mState = state;
    mValues = kDefaults;
    std::error_code error;
    if (fs::status(file, error).type() != fs::file_type::not_found) Read(file);
}

void Settings::Read(const fs::path& file)
{
    const std::string fallback = "; using default settings";
    std::error_code error;
    std::ifstream stream(file, std::ios::binary);
    if (!stream || fs::is_directory(file, error)) {
        LogError(file.string() + ": cannot be read" + fallback);
        return;
    }
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const json value = json::parse(text, nullptr, false);
    if (!value.is_object()) {
        const char* reason = value.is_discarded() ? "not JSON" : "not a JSON object";
        LogError(file.string() + ": " + reason + fallback);
        return;
    }
    for (const auto& [key, member] : value.items()) {
        if (member.is_string()) {
            mValues[key] = member.get<std::string>();
        } else {
            LogError(file.string() + ": the setting \"" + key + "\" is ignored: not a string");
        }
    }
}

}  // namespace plugincore
