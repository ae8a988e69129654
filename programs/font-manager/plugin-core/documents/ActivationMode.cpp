#include "plugin-core/documents/ActivationMode.h"

#include "plugin-core/documents/Dialogs.h"
#include "plugin-core/storage/Settings.h"

namespace plugincore {

ActivationMode ReadActivationMode(const std::string& setting)
{
    if (setting == "0") return ActivationMode::kOff;
    if (setting == "1") return ActivationMode::kAutomatic;
    if (setting == "2") return ActivationMode::kAsk;
    return IsInteractive() ? ActivationMode::kAsk : ActivationMode::kAutomatic;
}

ActivationMode GetActivationMode(Settings& settings, const std::filesystem::path& file)
{
    return ReadActivationMode(settings.Get(file, kActivationSetting));
}

std::string WriteActivationMode(ActivationMode mode)
{
    return std::to_string(static_cast<int>(mode));
}

}  // namespace plugincore
