#include "plugin-core/Core.h"

#include "plugin-core/panel/PanelToken.h"
#include "plugin-core/storage/Failure.h"

namespace plugincore {

Core& GetCore()
{
    static Core core;
    return core;
}

Core::Running::Running(const Locations& places, Settings& settings)
    : services(places),
      documents(services),
      panelProtocol(services),
      commands(services, documents, settings, [this] {
          watch.SetFolders(services.folders.GetFolders());
          panelProtocol.AnnounceLibraryChange();
      })
{
    (void)services.Start();  // what was repaired is told by nobody
    watch.Begin(services.folders.GetFolders(), [this] {
        std::vector<std::string> paths;
        for (const Library& library : services.folders.List()) paths.push_back(library.path);
        return paths;
    });
}

Core::Running& Core::GetRunning()
{
    if (!mRunning) throw Failure(StatusCodes::kNotInitialized, "called while it isn't started");
    return *mRunning;
}

void Core::Start()
{
    if (!mRunning) mRunning = std::make_unique<Running>(GetLocations(), mSettings);
}

void Core::Stop()
{
    if (!mRunning) return;
    const std::unique_ptr<Running> running = std::move(mRunning);
    running->services.Stop();
}

bool Core::IsEnabled() { return mSettings.Get(GetLocations().settings, "PluginEnabled") != "0"; }

std::string Core::GetSettings() { return mSettings.GetAsJson(GetLocations().settings); }

ActivationMode Core::GetMode()
{
    return ReadActivationMode(mSettings.Get(GetLocations().settings, kActivationSetting));
}

std::string Core::GetMenus(const std::string& documentPath)
{
    const Locations locations = GetLocations();
    MenuState state;
    state.hasDocument = !documentPath.empty();
    state.mode = GetMode();
    state.suppressesDialog =
        IsSuppressionOn(mSettings.Get(locations.settings, kSuppressionSetting));
    if (mRunning) {
        state.libraries = mRunning->services.folders.List();
        state.selectedLibrary = mRunning->services.folders.GetSelected();
    } else {
        state.libraries = ListLibraries(locations.libraries, {});
    }
    return MakeMenus(state);
}

void Core::SelectMenu(const std::string& id, const std::string& documentId,
                      const std::string& fontsJson)
{
    GetRunning().commands.Select(id, documentId, fontsJson);
}

std::string Core::GetAboutText() { return MakeAboutText(GetRunning().services); }

std::string Core::OpenDocument(const std::string& path, const std::string& fontsJson)
{
    return GetRunning().documents.Open(path, fontsJson, GetMode());
}

std::string Core::Resolve(const std::string& fontsJson)
{
    return GetRunning().documents.Resolve(fontsJson, GetMode());
}

int Core::ActivateFonts(const std::string& path, const std::string& fontsJson)
{
    return GetRunning().documents.Activate(path, fontsJson, GetMode());
}

void Core::CloseDocument(const std::string& path, const std::string& usage)
{
    GetRunning().documents.Close(path, usage);
}

void Core::SaveDocument(const std::string& path, const std::string& usage)
{
    GetRunning().documents.Save(path, usage, GetMode());
}

std::string Core::GetDocumentId(const std::string& path)
{
    return GetRunning().services.documentStore.GetId(path);
}

std::string Core::AddBlankDocument() { return GetRunning().documents.AddBlank(); }

void Core::UpdateUsage(const std::string& id, const std::string& usage)
{
    GetRunning().documents.Update(id, usage);
}

void Core::LookForGonePrograms()
{
    constexpr std::chrono::milliseconds kBetweenLooks(500);
    const auto now = std::chrono::steady_clock::now();
    if (now - mRunning->lastLook < kBetweenLooks) return;
    mRunning->lastLook = now;
    (void)mRunning->services.activation.RepairIfNeeded();  // what was repaired is told by nobody
}

void Core::Idle()
{
    if (!mRunning) return;
    LookForGonePrograms();
    if (!mRunning->watch.HasChanged()) return;
    mRunning->panelProtocol.AnnounceLibraryChange();
    if (mRebuild) mRebuild();
}

int Core::GetPanelPort()
{
    Running& running = GetRunning();
    if (!running.panel) {
        running.panel = std::make_unique<PanelServer>(
            running.panelProtocol, LoadOrMakePanelToken(running.services.locations.panelToken));
    }
    return running.panel->GetPort();
}

void Core::ServePanel()
{
    if (mRunning && mRunning->panel) mRunning->panel->Serve();
}

}  // namespace plugincore
