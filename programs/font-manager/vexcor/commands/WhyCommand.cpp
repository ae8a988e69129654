#include "console/Console.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/commands/FontStatus.h"

namespace vexcor {

int RunWhyCommand(plugincore::Services& services, const Options& options)
{
    const FontStatus status = ExplainFont(services, services.ListActiveFiles(), options.operand);
    if (!console::Print(options.json ? WriteStatusAsJson(status) : WriteStatusAsText(status))) {
        return kFileFailed;
    }
    return status.state == "inactive" ? kNegative : kSuccess;
}

}  // namespace vexcor
