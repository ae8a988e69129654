#include "commands/OpenCommand.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "application/ExitStatus.h"
#include "application/RunningHost.h"
#include "console/Console.h"
#include "system/Environment.h"
#include "system/Interrupts.h"

namespace headless {

namespace {

// The progress line on a terminal when there are many files.
class Progress {
public:
    explicit Progress(size_t total)
        : mTotal(total), mWanted(total > kFew && IsTerminal(STDERR_FILENO))
    {
    }
    ~Progress() { Clear(); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void Show(size_t number, const std::string& path) const
    {
        // A progress line that doesn't get out is no loss.
        if (mWanted) {
            (void)std::fprintf(stderr, "\r\033[K%zu of %zu  %s", number, mTotal,
                               console::MakePrintable(path).c_str());
        }
    }
    void Clear() const
    {
        if (mWanted) (void)std::fputs("\r\033[K", stderr);
    }

private:
    static constexpr size_t kFew = 5;
    const size_t mTotal;
    const bool mWanted;
};

int OpenAll(RunningHost& running)
{
    const std::vector<std::string>& files = running.options.files;
    int status = kAllOpened;
    running.application.Tick();
    const Progress progress(files.size());
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
