#include <sys/stat.h>

#include <cstdio>

#include "DialogSuppression.h"
#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "MessageFixture.h"

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class DocumentOpened : public MessageTest {
protected:
    DocumentOpened() { Start(); }

    // A document whose text is in these fonts.
    void AddDocument(const std::string& path, const std::vector<std::string>& fonts)
    {
        ScriptedDocument& document = host.AddDocument(path);
        if (!fonts.empty()) document.frames = {{fonts}};
        document.storyFonts = fonts;
    }
    _t_AIDocument* Current() { return host.DocumentHandle(host.currentDocument); }
    AIErr SendOpened() { return SendNotifier(kOpened, Current()); }
    static long ModificationTime(const std::string& path)
    {
        struct stat status = {};
        EXPECT_EQ(stat(path.c_str(), &status), 0);
        return status.st_mtime;
    }
    static bool WentToTheBackground()
    {
        return HasTraceBeginningWith("Entering BackgroundForegroundApp") ||
               HasTraceBeginningWith("Entering CrossPluginUtils::BackgroundForegroundApp");
    }
};

TEST_F(DocumentOpened, NullMessageIsAParameterError)
{
    EXPECT_EQ(HandleDocumentOpenedNotifier(nullptr), kParameterError);
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(DocumentOpened, PassesTheDocumentsFontsOn)
{
    const std::string path = ScratchFile("a.ai", "x");
    AddDocument(path, {"A", "HostSans-Regular", "B"});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleOpenExistingDocument"));
    EXPECT_THAT(core->openTexts,
                ElementsAre(R"([{"PostScriptName":"A"},{"PostScriptName":"HostSans-Regular"},)"
                            R"({"PostScriptName":"B"}])"));
}

TEST_F(DocumentOpened, RecordsPathAndModificationTime)
{
    const std::string path = ScratchFile("a.ai", "x");
    AddDocument(path, {"A"});
    SetFilePathForDocumentHandle(nullptr, path);
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_EQ(GetFilePathForDocumentHandle(Current()), path);
    EXPECT_EQ(GetTimestampForDocumentHandle(Current()), ModificationTime(path));
    EXPECT_EQ(GetTemplatePathForDocumentHandle(Current()), "");
    EXPECT_EQ(GetFontUsageForDocumentHandle(Current()), "");
    // The path of the check stays until the next one.
    EXPECT_EQ(GetFilePathForDocumentHandle(nullptr), path);
}

TEST_F(DocumentOpened, TemplateIsCheckedByThePathOfTheCheck)
{
    EXPECT_EQ(SendCheck("/templates/letter.ait"), -1);
    Forget();
    core->openTexts.clear();
    AddDocument("Untitled-1", {"A"});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_EQ(GetFilePathForDocumentHandle(Current()), "Untitled-1");
    EXPECT_EQ(GetTimestampForDocumentHandle(Current()), 0);
    EXPECT_EQ(GetTemplatePathForDocumentHandle(Current()), "/templates/letter.ait");
    EXPECT_EQ(GetFilePathForDocumentHandle(nullptr), "");
    EXPECT_THAT(core->calls, Contains("HandleOpenExistingDocument(\"/templates/letter.ait\", "
                                      "\"[{\"PostScriptName\":\"A\"}]\", 1048576, 0)"));
}

TEST_F(DocumentOpened, FileThatWentBetweenCheckAndOpenCountsAsATemplate)
{
    const std::string path = ScratchFile("gone.ai", "x");
    EXPECT_EQ(SendCheck(path), -1);
    ASSERT_EQ(std::remove(path.c_str()), 0);
    AddDocument(path, {"A"});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_EQ(GetFilePathForDocumentHandle(Current()), path);
    EXPECT_EQ(GetTemplatePathForDocumentHandle(Current()), path);
}

TEST_F(DocumentOpened, WithoutACheckBeforeItTheTemplatePathIsEmpty)
{
    AddDocument("Untitled-1", {"A"});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_EQ(GetTemplatePathForDocumentHandle(Current()), "");
    EXPECT_THAT(core->calls, Contains(::testing::StartsWith("HandleOpenExistingDocument(\"\", ")));
}

TEST_F(DocumentOpened, TwoDocumentsOfATemplateBothHaveItsPath)
{
    for (const char* const name : {"Untitled-1", "Untitled-2"}) {
        EXPECT_EQ(SendCheck("/letter.ait"), -1);
        AddDocument(name, {});
        EXPECT_EQ(SendOpened(), 0);
    }
    EXPECT_EQ(GetTemplatePathForDocumentHandle(host.DocumentHandle(0)), "/letter.ait");
    EXPECT_EQ(GetTemplatePathForDocumentHandle(host.DocumentHandle(1)), "/letter.ait");
}

TEST_F(DocumentOpened, DocumentWithoutTextIsCheckedWithTheEmptyText)
{
    AddDocument(ScratchFile("a.ai", "x"), {});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_TRUE(HasTrace("No fonts found in document."));
    EXPECT_THAT(core->openTexts, ElementsAre(""));
}

TEST_F(DocumentOpened, ScanThatFailsMidwayKeepsWhatItFound)
{
    AddDocument(ScratchFile("a.ai", "x"), {"A", "B", "C"});
    host.FailCall("AIFontSuite.GetPostScriptFontName", 3, 4711);
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_TRUE(HasTrace("No fonts found in document."));
    EXPECT_THAT(core->openTexts, ElementsAre(R"([{"PostScriptName":"A"},{"PostScriptName":"B"}])"));
}

TEST_F(DocumentOpened, TextEngineFailureIsNoException)
{
    AddDocument(ScratchFile("a.ai", "x"), {"A", "B"});
    host.FailCall("ATE ArrayFontRef.Item", 2, 4711);
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_FALSE(HasTrace("No fonts found in document."));
    EXPECT_THAT(core->openTexts, ElementsAre(R"([{"PostScriptName":"A"}])"));
}

TEST_F(DocumentOpened, PathThatCannotBeHadMeansNoRecordAndNoCheck)
{
    AddDocument("/a.ai", {"A"});
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_EQ(GetFilePathForDocumentHandle(Current()), "");
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(DocumentOpened, PathThatCannotBeHadStillLooksAtThePeriod)
{
    SetSuppressionOfMissingFontsDialog(15);
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_TRUE(WentToTheBackground());
}

TEST_F(DocumentOpened, PeriodOfItsOwnCheckBringsTheAppForward)
{
    AddDocument(ScratchFile("a.ai", "x"), {"A"});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_TRUE(WentToTheBackground());
}

TEST_F(DocumentOpened, WithoutAPeriodTheAppStays)
{
    core->enabled = false;
    AddDocument(ScratchFile("a.ai", "x"), {"A"});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_FALSE(WentToTheBackground());
}

TEST_F(DocumentOpened, DisabledStillScansAndRecords)
{
    core->enabled = false;
    const std::string path = ScratchFile("a.ai", "x");
    AddDocument(path, {"A"});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_TRUE(HasTrace("Name of used font: A"));
    EXPECT_EQ(GetFilePathForDocumentHandle(Current()), path);
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled"));
}

// Checked before the host reads the file, and again when it has been read.
TEST_F(DocumentOpened, RoadOfOneFile)
{
    const std::string path = ScratchFile("a.ai", "x");
    core->openAnswer = R"({"DocumentFonts":[{"PostScriptName":"A"}]})";
    EXPECT_EQ(SendCheck(path), -1);
    core->openAnswer = "";
    AddDocument(path, {"A"});
    EXPECT_EQ(SendOpened(), 0);
    EXPECT_THAT(core->calls,
                ElementsAre("PluginIsEnabled(true, false)",
                            "HandleOpenExistingDocument(\"" + path + "\", \"\", 1048576, 0)",
                            "InvokeResolveDialog(\"{\"DocumentFonts\":[{\"PostScriptName\":"
                            "\"A\"}]}\", 1048576)",
                            "ActivateChosenFonts(\"" + path +
                                "\", \"{\"DocumentFonts\":[{\"PostScriptName\":\"A\"}]}\", 0)",
                            "PluginIsEnabled(true, false)",
                            "HandleOpenExistingDocument(\"" + path +
                                "\", \"[{\"PostScriptName\":\"A\"}]\", 1048576, 0)"));
}

}  // namespace
