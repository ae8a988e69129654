#include "commands/OpenCommand.h"

#include <algorithm>

#include "application/ExitStatus.h"
#include "application/RunningHost.h"
#include "base/Progress.h"
#include "system/Interrupts.h"

namespace headless {

namespace {

constexpr size_t kLeastDocumentsForProgress = 6;

int OpenAll(RunningHost& running)
{
    const std::vector<std::string>& files = running.options.files;
    int status = kAllOpened;
    running.application.Tick();
    // PluginCore's questions on the terminal leave no line for the progress.
    const size_t shown = running.options.interactive ? 0 : files.size();
    base::Progress progress(shown, kLeastDocumentsForProgress);
    for (size_t i = 0; i < files.size() && !IsInterrupted(); ++i) {
        progress.Show(i + 1, files[i]);
        OpenReport report;
        status = std::max(status, OpenFile(running, files[i], report));
        progress.Clear();
    }
    return status;
}

}  // namespace

int RunOpenCommand(const Options& options) { return RunHost(options, OpenAll); }

}  // namespace headless
