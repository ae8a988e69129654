#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <utility>

#include "OpenBytes.h"
#include "PdfMaker.h"
#include "documents/postscript/SlowDrawings.h"

using namespace documents;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kForeign[] = "%!PS-Adobe-3.0 EPSF-3.0\n%%Creator: somebody\n%%EndComments\n";
constexpr char kReason[] = "no comment lists all fonts, and ";

// Replaces the PATH by a folder that has no programs but the gs that a test installs.
class GhostscriptTest : public testing::Test {
protected:
    void SetUp() override { setenv("PATH", mFolder.Path().c_str(), 1); }

    void Install(const std::string& script)
    {
        const std::string program = mFolder.Write("gs", "#!/bin/sh\nPATH=/usr/bin:/bin\n" + script);
        ASSERT_EQ(0, chmod(program.c_str(), 0755));
    }

    OpenResult Open(const std::string& eps, double seconds = 20) const
    {
        Limits limits;
        limits.helperSeconds = seconds;
        return OpenBytes(eps, "foreign.eps", limits);
    }

    ScratchFolder mFolder;
};

}  // namespace

TEST_F(GhostscriptTest, DrawsDocumentsWithoutFontComments)
{
    const std::string page = PdfMaker().SetContent("BT /F1 9 Tf (abc) Tj ET").Make();
    Install("cat '" + mFolder.Write("page.pdf", page) + "' >/proc/self/fd/11\n");
    const OpenResult result = Open(std::string(kForeign) + "%%IncludeFile: a.eps\n");
    EXPECT_EQ("ghostscript", result.document.reader);
    EXPECT_EQ("Alpha-Regular:3", DescribeFrames(result));
    EXPECT_EQ(Kind::kEPS, result.document.kind);
    EXPECT_THAT(result.document.linkedFiles, ElementsAre("a.eps"));
}

TEST_F(GhostscriptTest, ReadsTheDocumentSafely)
{
    const std::string page = PdfMaker().SetContent("BT /F1 9 Tf (abc) Tj ET").Make();
    const std::string drawing = mFolder.Write("page.pdf", page);
    Install("cmp -s /proc/self/fd/10 '" + mFolder.Write("wanted", kForeign) +
            "' && [ \"$2\" = -dSAFER ] && cat '" + drawing + "' >/proc/self/fd/11\n");
    EXPECT_EQ("ghostscript", Open(kForeign).document.reader);
}

TEST_F(GhostscriptTest, IsNotStartedIfCommentsListFonts)
{
    Install("exit 1\n");
    const OpenResult result = Open("%!PS-Adobe-3.0 EPSF-3.0\n%%DocumentFonts: A\n");
    EXPECT_EQ("dsc", result.document.reader);
    EXPECT_THAT(result.document.notes, IsEmpty());
}

TEST_F(GhostscriptTest, IsAskedIfCommentsDoNotListAllFonts)
{
    const std::string page = PdfMaker().SetContent("BT /F1 9 Tf (abc) Tj ET").Make();
    Install("cat '" + mFolder.Write("page.pdf", page) + "' >/proc/self/fd/11\n");
    const std::pair<const char*, const char*> kCases[] = {
        {"%%DocumentFonts:\n", "its comments name no font"},
        {"%%DocumentSuppliedFonts: A\n", "its comments name only the fonts that it contains"}};
    for (const auto& [list, note] : kCases) {
        const OpenResult result = Open(std::string(kForeign) + list);
        EXPECT_EQ("ghostscript", result.document.reader);
        EXPECT_EQ("Alpha-Regular:3", DescribeFrames(result));
        EXPECT_THAT(result.document.notes, ElementsAre(note));
    }
}

TEST_F(GhostscriptTest, ThatFailsLeavesTheFontsThatTheFileContains)
{
    Install("exit 1\n");
    const OpenResult result = Open(std::string(kForeign) + "%%DocumentSuppliedFonts: A\n");
    EXPECT_EQ("A:1", DescribeFrames(result));
    EXPECT_THAT(result.document.notes,
                ElementsAre("its comments name only the fonts that it contains",
                            std::string(kReason) + "Ghostscript cannot draw it"));
}

TEST_F(GhostscriptTest, IsNotStartedWithoutTime)
{
    const std::string trace = mFolder.Path() + "/asked";
    Install("touch '" + trace + "'\n");
    const OpenResult result = Open(kForeign, 0);
    EXPECT_EQ("dsc", result.document.reader);
    EXPECT_THAT(result.document.notes, IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(trace));
}

TEST_F(GhostscriptTest, ThatIsNotInstalledIsNoted)
{
    const OpenResult result = Open(kForeign);
    ASSERT_TRUE(result.ok) << result.error;
    EXPECT_EQ("dsc", result.document.reader);
    EXPECT_THAT(result.document.fonts, IsEmpty());
    EXPECT_THAT(result.document.notes,
                ElementsAre(std::string(kReason) + "Ghostscript isn't installed"));
}

TEST_F(GhostscriptTest, ThatFailsIsNoted)
{
    Install("exit 1\n");
    EXPECT_THAT(Open(kForeign).document.notes,
                ElementsAre(std::string(kReason) + "Ghostscript cannot draw it"));
}

TEST_F(GhostscriptTest, ThatDrawsNothingIsNoted)
{
    Install("exit 0\n");
    EXPECT_THAT(Open(kForeign).document.notes,
                ElementsAre(std::string(kReason) + "Ghostscript drew nothing"));
}

TEST_F(GhostscriptTest, ThatIsKilledIsNoted)
{
    Install("kill -9 $$\n");
    EXPECT_THAT(Open(kForeign).document.notes,
                ElementsAre(std::string(kReason) + "Ghostscript cannot draw it"));
}

TEST_F(GhostscriptTest, DrawsInAProgramThatIgnoresTheEndOfItsProcesses)
{
    const std::string page = PdfMaker().SetContent("BT /F1 9 Tf (abc) Tj ET").Make();
    Install("cat '" + mFolder.Write("page.pdf", page) + "' >/proc/self/fd/11\n");
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    const OpenResult result = Open(kForeign);
    (void)std::signal(SIGCHLD, before);
    EXPECT_EQ("ghostscript", result.document.reader);
}

TEST_F(GhostscriptTest, IsEndedWithItsChildProcesses)
{
    // The reader waits until the pipe closes, which either process would keep open if it continued.
    Install("sleep 1000 &\nsleep 1000\n");
    EXPECT_THAT(Open(kForeign, 0.2).document.notes,
                ElementsAre(std::string(kReason) + "Ghostscript took longer than 0.2 s"));
}

namespace {

std::map<std::string, double> sSecondsInVain;

// Ghostscript in a process that remembers what it didn't draw in time. It writes a line at each
// start and never ends.
class SlowDrawingsTest : public GhostscriptTest {
protected:
    void SetUp() override
    {
        GhostscriptTest::SetUp();
        Install("echo started >>'" + mFolder.Path("starts") + "'\nexec sleep 1000\n");
        UseSlowDrawings(
            {[](const char* drawing) { return sSecondsInVain[drawing]; },
             [](const char* drawing, double seconds) { sSecondsInVain[drawing] = seconds; }});
    }

    size_t CountStarts() const
    {
        std::ifstream lines(mFolder.Path("starts"));
        return static_cast<size_t>(std::count(std::istreambuf_iterator<char>(lines), {}, '\n'));
    }
};

}  // namespace

TEST_F(SlowDrawingsTest, AreNotTriedAgainAndHaveTheSameNote)
{
    const OpenResult first = Open(kForeign, 0.3);
    const OpenResult second = Open(kForeign, 0.3);
    EXPECT_EQ(1U, CountStarts());
    EXPECT_THAT(first.document.notes,
                ElementsAre(std::string(kReason) + "Ghostscript took longer than 0.3 s"));
    EXPECT_EQ(first.document.notes, second.document.notes);
}

TEST_F(SlowDrawingsTest, AreTriedAgainWithMoreTime)
{
    (void)Open(kForeign, 0.2);
    (void)Open(kForeign, 0.4);
    EXPECT_EQ(2U, CountStarts());
    (void)Open(kForeign, 0.3);
    EXPECT_EQ(2U, CountStarts());
}

TEST_F(SlowDrawingsTest, AreToldApartByTheirContent)
{
    (void)Open(kForeign, 0.2);
    (void)Open(std::string(kForeign) + " ", 0.2);
    EXPECT_EQ(2U, CountStarts());
}

TEST_F(SlowDrawingsTest, AreNotRememberedIfTheyFailAtOnce)
{
    Install("echo started >>'" + mFolder.Path("starts") + "'\nexit 1\n");
    (void)Open(kForeign);
    (void)Open(kForeign);
    EXPECT_EQ(2U, CountStarts());
}

TEST_F(SlowDrawingsTest, EndAfterTheTimeThatTheEnvironmentSays)
{
    setenv("CORVANTA_DRAWING_SECONDS", "0.2", 1);
    EXPECT_THAT(Open(kForeign).document.notes,
                ElementsAre(std::string(kReason) + "Ghostscript took longer than 0.2 s"));
}
