#include "console/Console.h"
#include "vexcor/commands/Commands.h"
#include "vexcor/commands/ExitStatus.h"
#include "vexcor/commands/FontStory.h"

namespace vexcor {

int RunWhyCommand(plugincore::Services& services, const Options& options)
{
    const FontStory story = TellStory(services, services.ListActiveFiles(), options.operand);
    if (!console::Print(options.json ? WriteStoryAsJson(story) : WriteStoryAsText(story))) {
        return kFileFailed;
    }
    return story.state == "inactive" ? kNotSo : kDone;
}

}  // namespace vexcor
