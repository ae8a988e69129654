#include <regex>

#include "EndToEnd.h"
#include "PseudoTerminal.h"

using testing::HasSubstr;

TEST_F(EndToEnd, ProgressAndReportsDoNotMixOnATerminal)
{
    std::string files;
    const std::string bytes = ReadFile(std::string(SAMPLES_FOLDER) + "/leaflet.eps");
    for (const char* const name : {"f1.eps", "f2.eps", "f3.eps", "f4.eps", "f5.eps", "f6.eps"}) {
        WriteFile(scratch / name, bytes);
        files += std::string(" ") + name;
    }
    PseudoTerminal terminal(MakeCommand("open nowhere.ai" + files));
    const std::string screen = terminal.ReadAll();
    EXPECT_EQ(3, terminal.Wait());
    // Each line of progress is cleared before anything else is printed.
    const std::regex progress("of 7  ([^\\r\\n]*)(\\r\\x1b\\[K)?");
    int count = 0;
    for (std::sregex_iterator match(screen.begin(), screen.end(), progress), end; match != end;
         ++match, ++count) {
        const std::string expected =
            count == 0 ? "nowhere.ai" : "f" + std::to_string(count) + ".eps";
        EXPECT_EQ(expected, (*match)[1]);
        EXPECT_EQ("\r\x1b[K", (*match)[2]);
    }
    EXPECT_EQ(7, count) << screen;
}

TEST_F(EndToEnd, AlertsKeepTheirLineBreaks)
{
    WriteFile(scratch / "script", "about\n");
    EXPECT_EQ(0, Run("script script")) << errors;
    EXPECT_EQ("headless-host: alert: Corvanta Fonts\n    Font library: " +
                  (scratch / "library").string() +
                  "\n    2 fonts in 2 files, 0 bad files skipped\n",
              errors);
}
