#include "console/Console.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/commands/FontStatus.h"

namespace vexcor {

int RunWhyCommand(plugincore::Workspace& workspace, const Options& options)
{
    const FontStatus status = ExplainFont(workspace, workspace.ListActiveFiles(), options.operand);
    if (!console::Print(options.json ? WriteStatusAsJson(status) : WriteStatusAsText(status))) {
        return kFileFailed;
    }
    return status.state == "inactive" ? kNegative : kDone;
}

}  // namespace vexcor
