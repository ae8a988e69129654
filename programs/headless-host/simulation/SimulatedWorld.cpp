#include "simulation/SimulatedWorld.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "model/PluginCode.h"
#include "system/Environment.h"
#include "system/Paths.h"

namespace headless {

namespace fs = std::filesystem;

namespace {

constexpr char kFramework[] = "Vexcor/PluginFiles/PluginCore.framework";

// Returns "" or one line about what is wrong.
std::string CreateFile(const std::string& path, const std::string& bytes)
{
    std::error_code ignored;  // the file cannot be opened then
    (void)fs::create_directories(fs::path(path).parent_path(), ignored);
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    file.close();
    return file ? std::string() : path + ": " + std::strerror(errno);
}

std::string ReadWhole(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

}  // namespace

SimulatedWorld::SimulatedWorld(const std::string& folder)
    : mFolder(folder), mModule(folder + "/" + kFramework + "/PluginCore")
{
    const fs::path installed = MakeAbsolute(GetProgramFolder(), "../Simulation");
    std::string error;
    if (!UseHome(folder + "/home", error)) throw std::runtime_error(error);
    std::error_code failure;
    fs::create_directories(fs::path(mModule).parent_path() / "Resources", failure);
    if (!failure) {
        const fs::path framework = installed / "PluginCore.framework";
        // A link: the system reads a module once for all processes.
        fs::create_symlink(framework / "PluginCore", mModule, failure);
        if (!fs::exists(mModule)) {
            throw std::runtime_error((framework / "PluginCore").string() + ": not installed");
        }
        fs::create_symlink(framework / "Resources/Info.plist",
                           fs::path(mModule).parent_path() / "Resources/Info.plist", failure);
    }
    if (failure) throw std::runtime_error(folder + ": " + failure.message());
    error = CreateFile(GetDataFolder() + "/Corvanta/com.corvanta.Vexcor-LaunchInfo.conf",
                       "vexcor.path=" + folder + "/Vexcor/Vexcor\n");
    if (error.empty() && chdir(folder.c_str()) != 0) error = folder + ": " + std::strerror(errno);
    if (!error.empty()) throw std::runtime_error(error);
    // Without links: the paths of the session, which are relative to it, begin like those of here.
    mFolder = fs::current_path();
    plugin_code::HideProcesses(true);
}

std::string SimulatedWorld::GetPath(const std::string& path) const
{
    return MakeAbsolute(mFolder, path);
}

std::string SimulatedWorld::CheckPath(const std::string& path) const
{
    std::error_code failure;  // a path that cannot be followed leads nowhere
    const std::string real = fs::weakly_canonical(GetPath(path), failure);
    const bool isInside = (failure ? GetPath(path) : real).rfind(mFolder + "/", 0) == 0;
    return isInside ? std::string() : path + ": is outside of the simulation's folder";
}

void SimulatedWorld::SetActive(const std::vector<std::string>& names)
{
    mActive = {names.begin(), names.end()};
    mActive.insert(kDefaultFont);
}

std::string SimulatedWorld::SetDocument(const std::string& path, documents::OpenResult result)
{
    std::string problem = CheckPath(path);
    if (!problem.empty()) return problem;
    const std::string absolute = GetPath(path);
    mDocuments[absolute] = std::move(result);
    return CreateFile(absolute, "%!PS-Adobe-3.0 EPSF-3.0\n");
}

documents::OpenResult SimulatedWorld::Read(const std::string& path) const
{
    const auto found = mDocuments.find(path);
    if (found == mDocuments.end() || !fs::exists(path)) return {false, {}, "No such file"};
    return found->second;
}

std::string SimulatedWorld::Write(Host& host, DocumentObject& document, const std::string& path)
{
    const std::string error = SetDocument(path, {true, document.content, {}});
    if (!error.empty()) return "cannot be saved: " + error;
    host.MarkSaved(document, path);
    return {};
}

void SimulatedWorld::CountFrom(const Host& host)
{
    mStart = {host.suiteFaults.GetCount(), host.coreFaults.GetCount(),
              plugin_code::GetAllocationCount()};
}

CallCounts SimulatedWorld::GetCounts(const Host& host) const
{
    if (mEnd) return *mEnd;
    return {host.suiteFaults.GetCount() - mStart.suiteCalls,
            host.coreFaults.GetCount() - mStart.coreCalls,
            plugin_code::GetAllocationCount() - mStart.allocations};
}

bool SimulatedWorld::LackFunction(const std::string& name)
{
    // In each table of names, where a name ends with a zero byte; another letter hides it from the
    // look-up.
    std::string bytes = ReadWhole(mModule);
    const std::string wanted = '\0' + name + '\0';
    bool isFound = false;
    for (size_t at = bytes.find(wanted); at != std::string::npos; at = bytes.find(wanted, at)) {
        bytes[at + 1] = '?';
        isFound = true;
    }
    if (name.empty() || !isFound) return false;
    return unlink(mModule.c_str()) == 0 && CreateFile(mModule, bytes).empty();
}

bool SimulatedWorld::LackCore() { return unlink(mModule.c_str()) == 0; }

}  // namespace headless
