#include <signal.h>

#include "ChildProcess.h"
#include "EndToEnd.h"

using testing::HasSubstr;
using testing::IsEmpty;

// How the plug-in finds PluginCore. A process that is called Vexcor is seen by every host of the
// machine, so nothing may run beside these tests.
class Found : public EndToEnd {
protected:
    Found()
    {
        pluginCore.clear();
        runFolder = "/";
        document = (scratch / Sample("leaflet.eps")).string();
    }

    ChildProcess StartVexcor(const std::string& command) const
    {
        const std::string line = EnvironmentOfHome() + "exec '" VEXCOR_PROGRAM "' " + command;
        return {{"/bin/sh", "-c", line}, scratch / "vexcor-output"};
    }

    std::string document;
};

TEST_F(Found, ThroughTheRunningVexcorWithoutAFile)
{
    ChildProcess vexcor = StartVexcor("watch");
    ASSERT_TRUE(vexcor.WaitForOutput("watching ")) << vexcor.GetOutput();
    EXPECT_EQ(Open(document + " --json"), 0) << errors;
    vexcor.Send(SIGTERM);
    EXPECT_EQ(vexcor.Wait(), 0) << vexcor.GetOutput();
}

TEST_F(Found, TheRunningVexcorGoesBeforeTheFile)
{
    WriteFile(home / ".local/share/Corvanta/com.corvanta.Vexcor-LaunchInfo.conf",
              "vexcor.path=/no/such/Vexcor\n");
    ChildProcess vexcor = StartVexcor("watch");
    ASSERT_TRUE(vexcor.WaitForOutput("watching ")) << vexcor.GetOutput();
    EXPECT_EQ(Open(document + " --json"), 0) << errors;
}

TEST_F(Found, ThroughTheFileThatInstallWrites)
{
    ChildProcess install = StartVexcor("install");
    ASSERT_EQ(install.Wait(), 0) << install.GetOutput();
    EXPECT_EQ(Open(document + " --json"), 0) << errors;
}

TEST_F(Found, ByNeitherTellsThatPluginCoreIsMissing)
{
    EXPECT_EQ(Open(document + " --json"), 4);
    EXPECT_THAT(errors, HasSubstr("alert: Missing PluginCore"));
    EXPECT_THAT(output, IsEmpty());
}

TEST_F(Found, AFileThatLeadsNowhereTellsTheSame)
{
    WriteFile(home / ".local/share/Corvanta/com.corvanta.Vexcor-LaunchInfo.conf",
              "vexcor.path=/no/such/Vexcor\n");
    EXPECT_EQ(Open(document + " --json"), 4);
    EXPECT_THAT(errors, HasSubstr("alert: Missing PluginCore"));
}

// The one program keeps the index while the other opens, and both are at the same fonts.
TEST_F(Found, VexcorTellsWhichDocumentHoldsAFont)
{
    ChildProcess vexcor = StartVexcor("watch");
    ASSERT_TRUE(vexcor.WaitForOutput("watching ")) << vexcor.GetOutput();
    EXPECT_EQ(Open(document + " --json --exec \"'" VEXCOR_PROGRAM "' why DejaVuSans >'" +
                   (scratch / "why").string() + "'\""),
              0)
        << errors;
    EXPECT_THAT(ReadFile(scratch / "why"), HasSubstr("DejaVuSans: activated"));
    EXPECT_THAT(ReadFile(scratch / "why"),
                HasSubstr("held by: " + document + ", open in headless-host (process "));
}
