#include <signal.h>

#include "ChildProcess.h"
#include "EndToEnd.h"

using testing::HasSubstr;
using testing::IsEmpty;

// How the plug-in finds PluginCore. Every host on the machine sees a process called Vexcor, so no
// other test may run at the same time.
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
    EXPECT_EQ(0, Open(document + " --json")) << errors;
    vexcor.Send(SIGTERM);
    EXPECT_EQ(0, vexcor.Wait()) << vexcor.GetOutput();
}

TEST_F(Found, TheRunningVexcorIsPreferredToTheFile)
{
    WriteFile(home / ".local/share/Corvanta" / kLaunchInformationName,
              "vexcor.path=/no/such/Vexcor\n");
    ChildProcess vexcor = StartVexcor("watch");
    ASSERT_TRUE(vexcor.WaitForOutput("watching ")) << vexcor.GetOutput();
    EXPECT_EQ(0, Open(document + " --json")) << errors;
}

TEST_F(Found, ThroughTheFileThatInstallWrites)
{
    ChildProcess install = StartVexcor("install");
    ASSERT_EQ(0, install.Wait()) << install.GetOutput();
    EXPECT_EQ(0, Open(document + " --json")) << errors;
}

TEST_F(Found, ByNeitherGivesAnAlertAndAHint)
{
    EXPECT_EQ(4, Open(document + " --json"));
    EXPECT_THAT(errors, HasSubstr("alert: Missing PluginCore"));
    EXPECT_THAT(errors, testing::EndsWith("hint: run 'Vexcor install' once\n"));
    EXPECT_THAT(output, IsEmpty());
}

TEST_F(Found, AFileWithAWrongPathGivesTheSameAlert)
{
    WriteFile(home / ".local/share/Corvanta" / kLaunchInformationName,
              "vexcor.path=/no/such/Vexcor\n");
    EXPECT_EQ(4, Open(document + " --json"));
    EXPECT_THAT(errors, HasSubstr("alert: Missing PluginCore"));
}

// One program watches the library while the other has a document open, with the same fonts.
TEST_F(Found, VexcorReportsWhichDocumentHoldsAFont)
{
    ChildProcess vexcor = StartVexcor("watch");
    ASSERT_TRUE(vexcor.WaitForOutput("watching ")) << vexcor.GetOutput();
    EXPECT_EQ(0, Open(document + " --json --exec \"'" VEXCOR_PROGRAM "' why DejaVuSans >'" +
                      (scratch / "why").string() + "'\""))
        << errors;
    EXPECT_THAT(ReadFile(scratch / "why"), HasSubstr("DejaVuSans: activated"));
    EXPECT_THAT(ReadFile(scratch / "why"),
                HasSubstr("held by: " + document + ", open in headless-host (process "));
}
