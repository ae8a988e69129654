#include "EndToEnd.h"

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

namespace fs = std::filesystem;

// The program in the folders of an installation: bin/headless-host, with PluginCore in
// Vexcor/PluginFiles. `Vexcor install` was not run.
class Installed : public EndToEnd {
protected:
    Installed() : launchInformation(home / ".local/share/Corvanta" / kLaunchInformationName)
    {
        pluginCore.clear();
        fs::create_directory(scratch / "bin");
        fs::create_directory(scratch / "Vexcor");
        fs::copy(program, scratch / "bin/headless-host");
        fs::create_directory_symlink(fs::path(PLUGIN_CORE_FRAMEWORK).parent_path(),
                                     scratch / "Vexcor/PluginFiles");
        program = scratch / "bin/headless-host";
    }

    const fs::path launchInformation;
};

TEST_F(Installed, FindsThePluginCoreBesideTheProgram)
{
    EXPECT_EQ(0, Open(Sample("leaflet.eps"))) << errors;
    EXPECT_EQ("vexcor.path=" + (scratch / "Vexcor/Vexcor").string() + "\n",
              ReadFile(launchInformation));
    EXPECT_THAT(errors, HasSubstr(launchInformation.string() + ": created\n"));
}

TEST_F(Installed, CreatesTheLaunchInformationFileOnce)
{
    const std::string file = Sample("leaflet.eps");
    EXPECT_EQ(0, Open(file)) << errors;
    EXPECT_EQ(0, Open(file)) << errors;
    EXPECT_THAT(errors, Not(HasSubstr(": created")));
}

TEST_F(Installed, NeverChangesAnExistingLaunchInformationFile)
{
    WriteFile(launchInformation, "vexcor.path=/no/such/Vexcor\n");
    EXPECT_EQ(4, Open(Sample("leaflet.eps")));
    EXPECT_EQ("vexcor.path=/no/such/Vexcor\n", ReadFile(launchInformation));
    EXPECT_THAT(errors, EndsWith("hint: run 'Vexcor install' once\n"));
}
