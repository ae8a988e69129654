#include <sys/stat.h>

#include <cstdlib>

#include "EndToEnd.h"

using testing::HasSubstr;

namespace {

// The host with a Ghostscript that writes a line at each start and draws without end.
class EndlessFileTest : public EndToEnd {
protected:
    void SetUp() override
    {
        const std::filesystem::path gs = scratch / "programs/gs";
        WriteFile(gs, "#!/bin/sh\necho started >>'" + (scratch / "starts").string() +
                          "'\nexec sleep 1000\n");
        ASSERT_EQ(0, chmod(gs.c_str(), 0755));
        const std::string path = (scratch / "programs").string() + ":" + std::getenv("PATH");
        setenv("PATH", path.c_str(), 1);
        setenv("CORVANTA_DRAWING_SECONDS", "1", 1);
        WriteFile(scratch / "endless.eps",
                  "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 9 9\n%%EndComments\n{} loop\n");
    }
};

}  // namespace

TEST_F(EndlessFileTest, CostsOneTimeLimitInAll)
{
    EXPECT_EQ(0, Open("endless.eps")) << errors;
    EXPECT_EQ("started\n", ReadFile(scratch / "starts"));
    EXPECT_THAT(output, HasSubstr("Ghostscript took longer than 1 s"));
}

TEST_F(EndlessFileTest, CostsOneTimeLimitAlsoIfItIsPlacedAndOpenedTwice)
{
    WriteFile(scratch / "page.eps",
              "%!PS-Adobe-3.0 EPSF-3.0\n%%DocumentFonts: DejaVuSans\n"
              "%%DocumentFiles: endless.eps\n%%EndComments\nshowpage\n");
    EXPECT_EQ(0, Open("page.eps endless.eps endless.eps")) << errors;
    EXPECT_EQ("started\n", ReadFile(scratch / "starts"));
}
