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

class DocumentOpened : public MessageFixture {
protected:
    DocumentOpened() { Start(); }

    // Adds a document whose text uses these fonts.
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
        EXPECT_EQ(0, stat(path.c_str(), &status));
        return status.st_mtime;
    }
    static bool BroughtTheAppForward()
    {
        return HasTraceBeginningWith("Entering BackgroundForegroundApp") ||
               HasTraceBeginningWith("Entering CrossPluginUtils::BackgroundForegroundApp");
    }
};

TEST_F(DocumentOpened, RejectsANullMessage)
{
    EXPECT_EQ(kHostBadParameter, HandleDocumentOpenedNotifier(nullptr));
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(DocumentOpened, PassesTheFontsOfTheDocumentToPluginCore)
{
    const std::string path = ScratchFile("a.ai", "x");
    AddDocument(path, {"A", "HostSans-Regular", "B"});
    EXPECT_EQ(0, SendOpened());
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
    EXPECT_EQ(0, SendOpened());
    EXPECT_EQ(path, GetFilePathForDocumentHandle(Current()));
    EXPECT_EQ(ModificationTime(path), GetTimestampForDocumentHandle(Current()));
    EXPECT_EQ("", GetTemplatePathForDocumentHandle(Current()));
    EXPECT_EQ("", GetFontUsageForDocumentHandle(Current()));
    // The path of the check is kept until the next check.
    EXPECT_EQ(path, GetFilePathForDocumentHandle(nullptr));
}

TEST_F(DocumentOpened, ChecksATemplateUnderThePathOfTheFileCheck)
{
    EXPECT_EQ(-1, SendCheck("/templates/letter.ait"));
    Forget();
    core->openTexts.clear();
    AddDocument("Untitled-1", {"A"});
    EXPECT_EQ(0, SendOpened());
    EXPECT_EQ("Untitled-1", GetFilePathForDocumentHandle(Current()));
    EXPECT_EQ(0, GetTimestampForDocumentHandle(Current()));
    EXPECT_EQ("/templates/letter.ait", GetTemplatePathForDocumentHandle(Current()));
    EXPECT_EQ("", GetFilePathForDocumentHandle(nullptr));
    EXPECT_THAT(core->calls, Contains("HandleOpenExistingDocument(\"/templates/letter.ait\", "
                                      "\"[{\"PostScriptName\":\"A\"}]\", 1048576, 0)"));
}

TEST_F(DocumentOpened, TreatsAFileDeletedAfterTheCheckAsATemplate)
{
    const std::string path = ScratchFile("gone.ai", "x");
    EXPECT_EQ(-1, SendCheck(path));
    ASSERT_EQ(0, std::remove(path.c_str()));
    AddDocument(path, {"A"});
    EXPECT_EQ(0, SendOpened());
    EXPECT_EQ(path, GetFilePathForDocumentHandle(Current()));
    EXPECT_EQ(path, GetTemplatePathForDocumentHandle(Current()));
}

TEST_F(DocumentOpened, TemplatePathIsEmptyWithoutAFileCheck)
{
    AddDocument("Untitled-1", {"A"});
    EXPECT_EQ(0, SendOpened());
    EXPECT_EQ("", GetTemplatePathForDocumentHandle(Current()));
    EXPECT_THAT(core->calls, Contains(::testing::StartsWith("HandleOpenExistingDocument(\"\", ")));
}

TEST_F(DocumentOpened, RecordsTheTemplateOfTwoDocuments)
{
    for (const char* const name : {"Untitled-1", "Untitled-2"}) {
        EXPECT_EQ(-1, SendCheck("/letter.ait"));
        AddDocument(name, {});
        EXPECT_EQ(0, SendOpened());
    }
    EXPECT_EQ("/letter.ait", GetTemplatePathForDocumentHandle(host.DocumentHandle(0)));
    EXPECT_EQ("/letter.ait", GetTemplatePathForDocumentHandle(host.DocumentHandle(1)));
}

TEST_F(DocumentOpened, ChecksADocumentWithoutTextWithAnEmptyText)
{
    AddDocument(ScratchFile("a.ai", "x"), {});
    EXPECT_EQ(0, SendOpened());
    EXPECT_TRUE(HasTrace("No fonts found in document."));
    EXPECT_THAT(core->openTexts, ElementsAre(""));
}

TEST_F(DocumentOpened, KeepsTheFontsFoundBeforeAFailure)
{
    AddDocument(ScratchFile("a.ai", "x"), {"A", "B", "C"});
    host.FailCall("AIFontSuite.GetPostScriptFontName", 3, 4711);
    EXPECT_EQ(0, SendOpened());
    EXPECT_TRUE(HasTrace("No fonts found in document."));
    EXPECT_THAT(core->openTexts, ElementsAre(R"([{"PostScriptName":"A"},{"PostScriptName":"B"}])"));
}

TEST_F(DocumentOpened, TreatsATextEngineFailureAsNoException)
{
    AddDocument(ScratchFile("a.ai", "x"), {"A", "B"});
    host.FailCall("ATE ArrayFontRef.Item", 2, 4711);
    EXPECT_EQ(0, SendOpened());
    EXPECT_FALSE(HasTrace("No fonts found in document."));
    EXPECT_THAT(core->openTexts, ElementsAre(R"([{"PostScriptName":"A"}])"));
}

TEST_F(DocumentOpened, NeitherRecordsNorChecksADocumentWithoutASpecification)
{
    AddDocument("/a.ai", {"A"});
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    EXPECT_EQ(0, SendOpened());
    EXPECT_EQ("", GetFilePathForDocumentHandle(Current()));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(DocumentOpened, BringsTheAppForwardEvenWithoutASpecification)
{
    SetSuppressionOfMissingFontsDialog(15);
    host.FailCall("AIDocumentSuite.GetDocumentFileSpecification", 1, 4711);
    AddDocument("/a.ai", {"A"});
    EXPECT_EQ(0, SendOpened());
    EXPECT_TRUE(BroughtTheAppForward());
}

TEST_F(DocumentOpened, BringsTheAppForwardInThePeriodOfItsOwnCheck)
{
    AddDocument(ScratchFile("a.ai", "x"), {"A"});
    EXPECT_EQ(0, SendOpened());
    EXPECT_TRUE(BroughtTheAppForward());
}

TEST_F(DocumentOpened, DoesNotBringTheAppForwardWithoutAPeriod)
{
    core->enabled = false;
    AddDocument(ScratchFile("a.ai", "x"), {"A"});
    EXPECT_EQ(0, SendOpened());
    EXPECT_FALSE(BroughtTheAppForward());
}

TEST_F(DocumentOpened, ScansAndRecordsEvenIfDisabled)
{
    core->enabled = false;
    const std::string path = ScratchFile("a.ai", "x");
    AddDocument(path, {"A"});
    EXPECT_EQ(0, SendOpened());
    EXPECT_TRUE(HasTrace("Name of used font: A"));
    EXPECT_EQ(path, GetFilePathForDocumentHandle(Current()));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled"));
}

TEST_F(DocumentOpened, ChecksAFileBeforeAndAfterTheHostReadsIt)
{
    const std::string path = ScratchFile("a.ai", "x");
    core->openAnswer = R"({"DocumentFonts":[{"PostScriptName":"A"}]})";
    EXPECT_EQ(-1, SendCheck(path));
    core->openAnswer = "";
    AddDocument(path, {"A"});
    EXPECT_EQ(0, SendOpened());
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
