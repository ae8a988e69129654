#include <filesystem>
#include <nlohmann/json.hpp>

#include "base/JsonText.h"
#include "base/Plural.h"
#include "console/Console.h"
#include "console/Log.h"
#include "plugin-core/storage/Failure.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"

namespace fs = std::filesystem;
using plugincore::Failure;
using plugincore::StatusCodes;

namespace vexcor {

int RunAddCommand(plugincore::Services& services, const Options& options)
{
    std::error_code error;
    const fs::path folder = fs::canonical(options.operand, error);
    if (error) throw Failure(StatusCodes::kError, options.operand + ": " + error.message());
    const fs::directory_iterator readable(folder, error);
    if (error) throw Failure(StatusCodes::kError, folder.string() + ": " + error.message());
    bool isAdded = false;
    std::string line = folder.string() + ": is in the font library already";
    if (services.folders.Add(folder)) {
        isAdded = true;
        services.ApplyLibraryChoice();
        services.library.Refresh();
        const int64_t count = services.library.CountNames(folder);
        line = folder.string() + ": added, with " + base::Count(static_cast<size_t>(count), "font");
    }
    console::LogAction(line);
    std::string text = console::MakePrintable(line);
    if (options.json) {
        const nlohmann::ordered_json json = {{"folder", folder.string()},
                                             {"added", isAdded},
                                             {"fonts", services.library.CountNames(folder)}};
        text = base::PrintJson(json);
    }
    return console::Print(text + "\n") ? kSuccess : kFileFailed;
}

}  // namespace vexcor
