#include <string>

#include "console/Console.h"
#include "console/Log.h"
#include "plugin-core/storage/AtomicFile.h"
#include "plugin-core/storage/Failure.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/commands/LaunchInformation.h"
#include "vexcor/system/System.h"

namespace vexcor {

int RunInstallCommand()
{
    const std::string program = GetProgramPath();
    if (program.find_first_of("\r\n") != std::string::npos) {
        throw plugincore::Failure(plugincore::StatusCodes::kError,
                                  program + ": the path contains a line break");
    }
    const std::filesystem::path file = GetLaunchInformationFile();
    const std::string before = ReadSmallFile(file);
    const std::string after = SetVexcorPath(before, program);
    if (after != before) plugincore::WriteFileAtomically(file, after);
    const std::string line = file.string() + ": points to " + program;
    console::LogAction(line);
    return console::Print(console::MakePrintable(line) + "\n") ? kSuccess : kFileFailed;
}

}  // namespace vexcor
