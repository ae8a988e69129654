#include "EndToEnd.h"

using testing::Contains;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST_F(EndToEnd, TheNextStartRepairsTheFilesOfAKilledHost)
{
    EXPECT_EQ(-1, Open(Sample("leaflet.eps") + " --exec 'kill -9 $PPID'"));
    EXPECT_THAT(ActiveFonts(), Contains("DejaVuSans"));

    EXPECT_EQ(1, Open(Sample("letterhead.ait") +
                      " --exec \"fc-list --format '%{postscriptname}\\n' >while-open\""));
    EXPECT_THAT(ReadNames("while-open"),
                UnorderedElementsAre("DejaVuSansMono", "DejaVuSerif-Bold"));
    EXPECT_THAT(ActiveFonts(), UnorderedElementsAre("DejaVuSansMono"));
    EXPECT_THAT(FontFilesInHome(), IsEmpty());
}

TEST_F(EndToEnd, ASecondHostKeepsItsFontsWhenTheFirstEnds)
{
    // The inner host opens and closes the same document while the outer one has it open.
    const std::string again = "'" HEADLESS_HOST_PROGRAM
                              "' open leaflet.eps --home home --library "
                              "library --plugin '" PLUG_IN_FOLDER "' >inner 2>&1";
    WriteFile(scratch / "again",
              "#!/bin/sh\n" + again + "\nfc-list --format '%{postscriptname}\\n' >after-inner\n");
    EXPECT_EQ(0,
              Open(Sample("leaflet.eps") + " --exec 'cd " + scratch.string() + " && sh ./again'"))
        << errors;
    EXPECT_THAT(ReadNames("after-inner"), UnorderedElementsAre("DejaVuSansMono", "DejaVuSans"))
        << ReadFile(scratch / "inner");
    EXPECT_THAT(FontFilesInHome(), IsEmpty());
}
