#include <sys/wait.h>

#include <cstdio>

#include "EndToEnd.h"
#include "PseudoTerminal.h"
#include "application/ExitStatus.h"

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

// How the host ends if its reader or its terminal goes away while documents hold fonts.
class Interrupt : public EndToEnd {
protected:
    // Checks that no font is active, in the home folder and for other programs.
    void ExpectFontsReleased() const
    {
        EXPECT_THAT(ActiveFonts(), UnorderedElementsAre("DejaVuSansMono"));
        EXPECT_THAT(FontFilesInHome(), IsEmpty());
    }

    void ExpectOrderlyEnd() const
    {
        const std::string journal = ReadFile(scratch / "journal");
        EXPECT_THAT(journal, HasSubstr("AI Document Closed Notifier"));
        EXPECT_THAT(journal, HasSubstr("\"unloaded\""));
    }
};

TEST_F(Interrupt, APipeThatNobodyReadsReleasesTheFonts)
{
    const std::string command = MakeCommand("open " + Sample("leaflet.eps") + " " +
                                            Sample("letterhead.ait") + " --journal journal");
    const std::string redirected = command + " 2>'" + (scratch / "err").string() + "' </dev/null";
    // pclose closes the reading end before it waits, long before the first report.
    const int status = pclose(popen(redirected.c_str(), "r"));
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(headless::kInterrupted, WEXITSTATUS(status));
    EXPECT_THAT(ReadFile(scratch / "err"), Not(HasSubstr("headless-host")));
    ExpectFontsReleased();
    ExpectOrderlyEnd();
}

TEST_F(Interrupt, HeadEndsTheHost)
{
    const std::string command =
        "(" +
        MakeCommand("open " + Sample("leaflet.eps") + " " + Sample("letterhead.ait") +
                    " --journal journal --keep-open 600") +
        ") </dev/null | head -1 >'" + (scratch / "out").string() + "'";
    EXPECT_EQ(0, std::system(command.c_str()));
    EXPECT_THAT(ReadFile(scratch / "out"), testing::StartsWith("leaflet.eps: eps"));
    ExpectFontsReleased();
    ExpectOrderlyEnd();
}

TEST_F(Interrupt, AClosedTerminalEndsTheHost)
{
    PseudoTerminal terminal(
        MakeCommand("open " + Sample("leaflet.eps") + " --journal journal --keep-open 600"));
    ASSERT_TRUE(terminal.WaitFor("missing-fonts dialog"));
    terminal.Close();
    EXPECT_EQ(headless::kInterrupted, terminal.Wait());
    ExpectFontsReleased();
    ExpectOrderlyEnd();
}

TEST_F(Interrupt, AClosedTerminalEndsThePrompt)
{
    Sample("leaflet.eps");
    PseudoTerminal terminal(MakeCommand("script --journal journal"));
    ASSERT_TRUE(terminal.WaitFor("host> "));
    terminal.Type("open leaflet.eps\r");
    ASSERT_TRUE(terminal.WaitFor("missing-fonts dialog"));
    terminal.Close();
    EXPECT_EQ(headless::kInterrupted, terminal.Wait());
    ExpectFontsReleased();
    ExpectOrderlyEnd();
}
