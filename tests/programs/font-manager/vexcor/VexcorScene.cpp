#include "VexcorScene.h"

#include <fstream>
#include <iterator>

namespace {

std::vector<std::string> MakeCommand(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), VEXCOR_PROGRAM);
    return arguments;
}

}  // namespace

int VexcorScene::Run(const std::vector<std::string>& arguments)
{
    ChildProcess program(MakeCommand(arguments), home.GetPath() / "output");
    const int status = program.Wait();
    output = program.GetOutput();
    return status;
}

std::unique_ptr<ChildProcess> VexcorScene::StartDaemon(
    const std::vector<std::string>& arguments) const
{
    std::vector<std::string> words = {"watch"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    auto daemon =
        std::make_unique<ChildProcess>(MakeCommand(words), home.GetPath() / "daemon-output");
    EXPECT_TRUE(daemon->WaitForOutput("watching ")) << daemon->GetOutput();
    return daemon;
}

plugincore::Services& VexcorScene::OpenServices()
{
    if (!mServices) {
        mServices = std::make_unique<plugincore::Services>(plugincore::GetLocations());
        (void)mServices->Start("test");  // there is nothing to repair
    }
    return *mServices;
}

std::filesystem::path VexcorScene::GetLaunchFile() const
{
    return home.GetData() / "Corvanta/com.corvanta.Vexcor-LaunchInfo.conf";
}

std::string VexcorScene::ReadFile(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}
