#include "plugin-core/Core.h"

#include <string>
#include <vector>

#include "plugin-core/CallRecord.h"
#include "plugin-core/panel/PanelToken.h"
#include "plugin-core/storage/Failure.h"
#include "plugin-core/storage/Locations.h"

namespace plugincore {

Core& GetCore()
{
    static Core core;
    return core;
}

Core::Running::Running(const Locations& places, Settings& settings)
    : services(places), documents(services), commands(services, documents, settings, [this] {
          watch.SetFolders(services.folders.GetFolders());
      })
{
    (void)services.Start();  // the host has no use for the list of repairs; Vexcor logs it
    watch.Begin(services.folders.GetFolders(), [this] {
        std::vector<std::string> paths;
        for (const Library& library : services.folders.List()) paths.push_back(library.path);
        return paths;
    });
}

int Core::Running::GetPanelPort()
{
    if (!panel) {
        auto worker = std::make_unique<PanelWorker>(services.locations);
        panel = std::make_unique<PanelServer>(worker->GetQueue(),
                                              LoadOrMakePanelToken(services.locations.panelToken),
                                              services.database);
        panelWorker = std::move(worker);
    }
    return panel->GetPort();
}

void Core::Running::ClosePanel()
{
    panel.reset();
    panelWorker.reset();
}

Core::Running& Core::GetRunning()
{
    if (!mRunning) throw Failure(StatusCodes::kNotInitialized, "PluginCore is not started");
    return *mRunning;
}

void Core::Start()
{
    if (!mRunning) mRunning = std::make_unique<Running>(GetLocations(), mSettings);
}

void Core::Stop()
{
    if (!mRunning) return;
    // Moved out first, so that Core is stopped even if the database fails now.
    const std::unique_ptr<Running> running = std::move(mRunning);
    // Before the holds are released: no request may add one afterwards.
    running->ClosePanel();
    running->services.Stop();
}

void Core::Idle()
{
    if (!mRunning) return;
    // The host is idle many times per second, and each look costs a query and a few system calls.
    constexpr std::chrono::milliseconds kBetweenRepairs(500);
    const auto now = std::chrono::steady_clock::now();
    if (now - mRunning->lastRepair >= kBetweenRepairs) {
        mRunning->lastRepair = now;
        (void)mRunning->services.activation.RepairIfNeeded();  // as in Start
    }
    mRunning->documents.ReleaseClosed();
    if (!mRunning->watch.HasChanged()) return;
    if (!mRebuild) return;
    // The journal has no line about an idle event. This one is before those of the calls of the
    // callback.
    if (OSHasHostJournal()) OSWriteHostJournal("rebuild menu", nlohmann::json::object(), nullptr);
    mRebuild();
}

}  // namespace plugincore
