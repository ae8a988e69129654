#include "plugin-core/services/LinkedDocuments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "CoreSession.h"

namespace fs = std::filesystem;

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string ReadFile(const fs::path& file)
{
    std::stringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

class LinkedDocumentsTest : public testing::Test {
protected:
    std::string Open(const std::string& fontsJson) const
    {
        return CaptureErrors(
            [&] { EXPECT_EQ(0U, mSession.core.OpenAndActivate(mDocument, fontsJson)); });
    }
    std::string Save(const std::vector<std::string>& linked) const
    {
        return CaptureErrors([&] {
            const std::string usage = MakeUsage({"DejaVuSans"}, linked);
            EXPECT_EQ(0U, mSession.core.pHandleSaveDocument(mDocument.c_str(), usage.c_str()));
        });
    }
    void Close() const { EXPECT_EQ(0U, mSession.core.pHandleCloseDocument(mDocument.c_str(), "")); }

    CoreSession mSession;
    fs::path mFolder = mSession.home.GetPath() / "art";
    fs::path mDocument = mFolder / "page.eps";
};

TEST_F(LinkedDocumentsTest, FontsOfPlacedFilesAreActiveWhileTheDocumentIsOpen)
{
    WriteEps(mDocument, {"DejaVuSans"}, {"logos/logo.eps"});
    WriteEps(mFolder / "logos/logo.eps", {"DejaVuSerif"}, {mFolder / "deep.EPS"});
    WriteEps(mFolder / "deep.EPS", {"DejaVuSansMono"});
    EXPECT_EQ("", Open(""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(),
                ElementsAre("DejaVuSans", "DejaVuSansMono", "DejaVuSerif"));
    Close();
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), IsEmpty());
}

TEST_F(LinkedDocumentsTest, FontsOfTheTextPrecedeThoseOfPlacedFiles)
{
    WriteEps(mDocument, {"DejaVuSerif"}, {"a.eps"});
    WriteEps(mFolder / "a.eps", {"DejaVuSans", "DejaVuSerif"});
    EXPECT_EQ(
        "{\"DocumentFonts\":[{\"PostScriptName\":\"DejaVuSerif\"},"
        "{\"PostScriptName\":\"DejaVuSans\"}]}",
        mSession.core.Open(mDocument, ""));
}

TEST_F(LinkedDocumentsTest, ListedFontsOfPlacedFilesAreActive)
{
    WriteEps(mDocument, {"DejaVuSans"}, {"a.ai"});
    WriteNative(mFolder / "a.ai", "DejaVuSerif", {"DejaVuSerif", "DejaVuSansMono"});
    EXPECT_EQ("", Open(""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(),
                ElementsAre("DejaVuSans", "DejaVuSansMono", "DejaVuSerif"));
}

TEST_F(LinkedDocumentsTest, SecondOpenKeepsTheFontsOfPlacedFiles)
{
    WriteEps(mDocument, {"DejaVuSans"}, {"a.eps"});
    WriteEps(mFolder / "a.eps", {"DejaVuSerif"});
    Open("");
    EXPECT_EQ("", mSession.core.Open(mDocument, MakeFontList({"DejaVuSans"})));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSerif"));
}

TEST_F(LinkedDocumentsTest, SaveUsesThePlacedFilesOfTheUsageReport)
{
    WriteEps(mDocument, {"DejaVuSans"});
    WriteEps(mFolder / "a.eps", {"DejaVuSerif"});
    Open("");
    EXPECT_EQ("", Save({mFolder / "a.eps"}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_EQ("", Save({}));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST_F(LinkedDocumentsTest, MissingFileIsReportedOnce)
{
    WriteEps(mDocument, {"DejaVuSans"}, {"gone.ai"});
    const std::string line = "PluginCore: " + mDocument.string() + ": the placed " +
                             (mFolder / "gone.ai").string() + " cannot be read: no such file\n";
    EXPECT_EQ(line, Open(""));
    EXPECT_EQ("", Open(MakeFontList({"DejaVuSans"})));
    EXPECT_EQ("", Save({"gone.ai"}));
    Close();
    EXPECT_EQ("", Open(""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST_F(LinkedDocumentsTest, FilesThatPlaceEachOtherAreReportedOnceAndReadCompletely)
{
    WriteEps(mDocument, {}, {"a.eps", "b.eps"});
    WriteEps(mFolder / "a.eps", {"DejaVuSans"}, {"b.eps", "page.eps"});
    WriteEps(mFolder / "b.eps", {"DejaVuSerif"}, {"a.eps"});
    EXPECT_EQ("PluginCore: " + mDocument.string() + ": the placed " + (mFolder / "a.eps").string() +
                  " is placed inside itself\n" + "PluginCore: " + mDocument.string() +
                  ": the placed " + mDocument.string() + " is placed inside itself\n",
              Open(""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_EQ("", Open(""));
}

TEST_F(LinkedDocumentsTest, FileThatIsPlacedTwiceIsNotACircle)
{
    WriteEps(mDocument, {}, {"a.eps", "a.eps", "b.eps"});
    WriteEps(mFolder / "a.eps", {"DejaVuSans"});
    WriteEps(mFolder / "b.eps", {}, {"a.eps"});
    EXPECT_EQ("", Open(""));
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSans"));
}

TEST_F(LinkedDocumentsTest, IgnoresPictures)
{
    WriteEps(mDocument, {"DejaVuSans"}, {"gone.psd", "photo.jpg"});
    FontTestHome::WriteFile(mFolder / "photo.jpg", "no document");
    EXPECT_EQ("", Open(""));
}

TEST_F(LinkedDocumentsTest, FileThatIsNotADocumentIsReported)
{
    WriteEps(mDocument, {"DejaVuSans"}, {"rubbish.pdf"});
    FontTestHome::WriteFile(mFolder / "rubbish.pdf", "rubbish");
    EXPECT_THAT(Open(""), HasSubstr("rubbish.pdf cannot be read: "));
}

TEST_F(LinkedDocumentsTest, ChangedFileIsReadAgain)
{
    WriteEps(mDocument, {}, {"a.eps"});
    WriteEps(mFolder / "a.eps", {"DejaVuSans"});
    Open("");
    Close();
    WriteEps(mFolder / "a.eps", {"DejaVuSansMono"});
    Open("");
    EXPECT_THAT(FontTestHome::ListOfOtherProcess(), ElementsAre("DejaVuSansMono"));
}

TEST_F(LinkedDocumentsTest, ChainOfFilesEndsAtTheLimit)
{
    WriteEps(mDocument, {"DejaVuSans"}, {"0.eps"});
    for (int number = 0; number < 1010; ++number) {
        WriteEps(mFolder / (std::to_string(number) + ".eps"), {"DejaVuSans"},
                 {std::to_string(number + 1) + ".eps"});
    }
    EXPECT_EQ(
        "PluginCore: " + mDocument.string() + ": too many placed documents; some were not read\n",
        Open(""));
}

TEST_F(LinkedDocumentsTest, SkipsFilesAfterTheTimeLimit)
{
    WriteEps(mFolder / "a.eps", {"DejaVuSans"});
    plugincore::LinkedDocuments linked(0);
    testing::internal::CaptureStderr();
    EXPECT_THAT(linked.GetFonts(mDocument, {"a.eps"}), IsEmpty());
    EXPECT_EQ("PluginCore: " + mDocument.string() +
                  ": its placed documents take too long; some were not read\n",
              testing::internal::GetCapturedStderr());
    EXPECT_THAT(plugincore::LinkedDocuments().GetFonts(mDocument, {"a.eps"}),
                ElementsAre("DejaVuSans"));
}

// Each of them takes all the time that a document's placed files have.
TEST_F(LinkedDocumentsTest, TimeLimitHoldsForADocumentUntilItIsClosedAndNotForEachCall)
{
    const fs::path starts = mSession.home.GetPath() / "starts";
    FontTestHome::WriteFile(mFolder / "gs", "#!/bin/sh\necho started >>'" + starts.string() +
                                                "'\nexec /bin/sleep 1000\n");
    ASSERT_EQ(0, chmod((mFolder / "gs").c_str(), 0755));
    setenv("PATH", mFolder.c_str(), 1);
    std::vector<std::string> placed;
    for (const char* const name : {"a.eps", "b.eps", "c.eps", "d.eps"}) {
        FontTestHome::WriteFile(mFolder / name, std::string("%!PS-Adobe-3.0 EPSF-3.0\n%") + name +
                                                    "\n%%EndComments\n{} loop\n");
        placed.emplace_back(name);
    }
    WriteEps(mFolder / "known.eps", {"DejaVuSans"});
    placed.insert(placed.begin(), "known.eps");
    plugincore::LinkedDocuments linked(0.4);
    const std::string line = CaptureErrors([&] {
        for (int call = 0; call < 3; ++call) {
            EXPECT_THAT(linked.GetFonts(mDocument, placed), ElementsAre("DejaVuSans"));
        }
    });
    EXPECT_EQ("PluginCore: " + mDocument.string() +
                  ": its placed documents take too long; some were not read\n",
              line);
    EXPECT_EQ("started\n", ReadFile(starts));
    // What the user changes is read, and after the close all files have time again.
    WriteEps(mFolder / "known.eps", {"DejaVuSans", "DejaVuSerif"});
    EXPECT_THAT(linked.GetFonts(mDocument, placed), ElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_EQ("started\n", ReadFile(starts));
    linked.Forget(mDocument);
    (void)linked.GetFonts(mDocument, placed);
    EXPECT_EQ("started\nstarted\n", ReadFile(starts));
}

}  // namespace
