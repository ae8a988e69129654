#include <algorithm>

#include "DialogSuppression.h"
#include "DocumentRegistry.h"
#include "FileFormatHook.h"
#include "MessageFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr std::size_t kBufferSize = 1048576;

const char* const kTwoFonts =
    R"({"DocumentFonts":[{"PostScriptName":"A"},{"PostScriptName":"B"}]})";
const json kFonts = json::parse(R"([{"PostScriptName":"A"}])");

class FileFormatCheck : public MessageFixture {
protected:
    FileFormatCheck() { Start(); }

    bool Suppressing() { return GetSuppressionOfMissingFontsDialog(); }
    static std::string Open(const std::string& path, const std::string& text)
    {
        return "HandleOpenExistingDocument(\"" + path + "\", \"" + text + "\", 1048576, 0)";
    }
};

TEST_F(FileFormatCheck, StoresThePathUnderTheNullHandle)
{
    EXPECT_EQ(-1, SendCheck("/folder/m\xC3\xBCll.ai"));
    EXPECT_EQ("/folder/m\xC3\xBCll.ai", GetFilePathForDocumentHandle(nullptr));
}

TEST_F(FileFormatCheck, AsksTheHostForTheFullPath)
{
    EXPECT_EQ(-1, SendCheck("/folder/a.ai"));
    EXPECT_EQ(1U, host.CountCalls("AIFilePathSuite.GetFullPath(\"/folder/a.ai\", false)"));
    EXPECT_EQ(0U, host.CountCalls("AIFilePathSuite.GetFileName"));
}

TEST_F(FileFormatCheck, NeitherStoresNorChecksAnEmptyPath)
{
    SetFilePathForDocumentHandle(nullptr, "/before.ai");
    EXPECT_EQ(-1, SendCheck(""));
    EXPECT_EQ("/before.ai", GetFilePathForDocumentHandle(nullptr));
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(FileFormatCheck, StoresOnlyThePathIfDisabled)
{
    core->enabled = false;
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_EQ("/a.ai", GetFilePathForDocumentHandle(nullptr));
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)"));
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, StartsThePeriodIfThereIsNothingToResolve)
{
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)", Open("/a.ai", "")));
    EXPECT_TRUE(HasTrace("SetSuppressionOfMissingFontsDialog(until 15 seconds from now)"));
    FakeClock::Advance(14);
    EXPECT_TRUE(Suppressing());
    FakeClock::Advance(1);
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, ChecksFilesOfAnyKind)
{
    EXPECT_EQ(-1, SendCheck("/notes.txt"));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleOpenExistingDocument"));
}

TEST_F(FileFormatCheck, ActivatesTheChosenFontsAndStartsThePeriod)
{
    core->openAnswer = kTwoFonts;
    core->resolveAnswer = R"([{"PostScriptName":"B"}])";
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_THAT(core->calls,
                ElementsAre("PluginIsEnabled(true, false)", Open("/a.ai", ""),
                            "InvokeResolveDialog(\"" + std::string(kTwoFonts) + "\", 1048576)",
                            "ActivateChosenFonts(\"/a.ai\", \"[{\"PostScriptName\":\"B\"}]\", 0)"));
    EXPECT_TRUE(Suppressing());
}

TEST_F(FileFormatCheck, RemovesTheHostsDefaultFontsBeforeTheDialog)
{
    core->openAnswer = R"({ "LinkedDocuments":[], "DocumentFonts":)"
                       R"([{"PostScriptName":"HostSans-Bold"},{"PostScriptName":"A"}]})";
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_THAT(
        core->calls,
        ::testing::Contains("InvokeResolveDialog(\"{\"DocumentFonts\":[{\"PostScriptName\":\"A\"}],"
                            "\"LinkedDocuments\":[]}\", 1048576)"));
}

TEST_F(FileFormatCheck, DoesNotReformatATextWithoutDefaultFonts)
{
    core->openAnswer = R"({ "DocumentFonts" : [ {"PostScriptName":"A"} ] })";
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_THAT(core->calls,
                ::testing::Contains("InvokeResolveDialog(\"" + *core->openAnswer + "\", 1048576)"));
}

TEST_F(FileFormatCheck, OpensTheDialogEvenForAnEmptyList)
{
    core->openAnswer = R"({"DocumentFonts":[{"PostScriptName":"HostSans-Regular"}]})";
    core->resolveAnswer = "";
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_THAT(core->calls,
                ::testing::Contains("InvokeResolveDialog(\"{\"DocumentFonts\":[]}\", 1048576)"));
}

TEST_F(FileFormatCheck, TracesADialogWithoutAChoiceAndStartsNoPeriod)
{
    core->openAnswer = kTwoFonts;
    core->resolveAnswer = "";
    core->resolveSize = 17;
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_TRUE(HasTrace("InvokeResolveDialog(..., OUT bufSize=17) returned 0"));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleOpenExistingDocument",
                                                 "InvokeResolveDialog"));
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, TracesTheStatusOfADialogThatFails)
{
    core->openAnswer = kTwoFonts;
    core->resolveAnswer = "";
    core->statuses["InvokeResolveDialog"] = 9;
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_TRUE(HasTrace("InvokeResolveDialog(..., OUT bufSize=1048576) returned 9"));
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, ActivatesTheFontsOfAFailedDialogWithoutAPeriod)
{
    core->openAnswer = kTwoFonts;
    core->statuses["InvokeResolveDialog"] = 9;
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    // The failed dialog left the text as it was: that text is the choice.
    EXPECT_EQ("ActivateChosenFonts(\"/a.ai\", \"" + std::string(kTwoFonts) + "\", 0)",
              core->calls.back());
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, ActivatesTheFilteredFontsOfAFailedDialog)
{
    core->openAnswer =
        R"([{"PostScriptName":"HostSans"},{"PostScriptName":"First"},{"PostScriptName":"B"}])";
    core->statuses["InvokeResolveDialog"] = 9;
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_EQ(R"(ActivateChosenFonts("/a.ai", "[{"PostScriptName":"First"},)"
              R"({"PostScriptName":"B"}]", 0))",
              core->calls.back());
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, StartsNoPeriodIfTheActivationFails)
{
    core->openAnswer = kTwoFonts;
    core->statuses["ActivateChosenFonts"] = 9;
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_EQ("ActivateChosenFonts", core->CalledNames().back());
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, IgnoresTheStatusesOfTheFirstTwoCalls)
{
    core->statuses["PluginIsEnabled"] = 9;
    core->statuses["HandleOpenExistingDocument"] = 9;
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_EQ("HandleOpenExistingDocument", core->CalledNames().back());
    EXPECT_TRUE(Suppressing());
}

TEST_F(FileFormatCheck, PassesTheFontsAsCompactText)
{
    HandleCheckFileFormat("/a.ai", json::parse(R"([ {"PostScriptName": "Schrift-ü"} ])"));
    EXPECT_THAT(core->openTexts, ElementsAre("[{\"PostScriptName\":\"Schrift-\xC3\xBC\"}]"));
}

TEST_F(FileFormatCheck, StartsThePeriodForFontsWithNothingToResolve)
{
    HandleCheckFileFormat("/a.ai", kFonts);
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)",
                                         Open("/a.ai", "[{\"PostScriptName\":\"A\"}]")));
    EXPECT_TRUE(Suppressing());
}

TEST_F(FileFormatCheck, PassesNullFontsAsAnEmptyText)
{
    HandleCheckFileFormat("/a.ai", json());
    EXPECT_THAT(core->openTexts, ElementsAre(""));
}

TEST_F(FileFormatCheck, HandleCheckFileFormatAcceptsAnEmptyPath)
{
    HandleCheckFileFormat("", json());
    EXPECT_THAT(core->calls, ::testing::Contains(Open("", "")));
}

TEST_F(FileFormatCheck, ThrowsTheJsonErrorForFontsThatAreNotUTF8)
{
    EXPECT_THROW(HandleCheckFileFormat("/a.ai", json("\xFF")), json::exception);
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled"));
}

TEST_F(FileFormatCheck, CutsATextThatIsLongerThanTheBuffer)
{
    const json fonts = std::string(kBufferSize + 100, 'x');
    HandleCheckFileFormat("/a.ai", fonts);
    ASSERT_EQ(1U, core->openTexts.size());
    EXPECT_EQ("\"" + std::string(kBufferSize - 1, 'x'), core->openTexts[0]);
}

TEST_F(FileFormatCheck, DoesNotCutATextThatFillsTheBuffer)
{
    const json fonts = std::string(kBufferSize - 2, 'x');
    HandleCheckFileFormat("/a.ai", fonts);
    ASSERT_EQ(1U, core->openTexts.size());
    EXPECT_EQ(fonts.dump(), core->openTexts[0]);
}

// All calls get a pointer to the same size variable.
TEST_F(FileFormatCheck, PassesTheSizeThatOpeningLeftToTheDialog)
{
    core.Loader().pfHandleOpenExistingDocument = [](const char*, char* ioJson, size_t* ioSize,
                                                    int*) -> unsigned int {
        const std::string text = R"([{"PostScriptName":"A"}])";
        (void)text.copy(ioJson, text.size());
        *ioSize = 77;
        return 0;
    };
    EXPECT_EQ(-1, SendCheck("/a.ai"));
    EXPECT_THAT(core->calls,
                ::testing::Contains("InvokeResolveDialog(\"[{\"PostScriptName\":\"A\"}]\", 77)"));
}

TEST_F(FileFormatCheck, CutsTheFilteredTextAtTheSizeThatOpeningLeft)
{
    core.Loader().pfHandleOpenExistingDocument = [](const char*, char* ioJson, size_t* ioSize,
                                                    int*) -> unsigned int {
        const std::string text =
            R"([{"PostScriptName":"HostSans"},{"PostScriptName":"First"},{"PostScriptName":"B"}])";
        (void)text.copy(ioJson, text.size());
        *ioSize = 22;
        return 0;
    };
    HandleCheckFileFormat("/a.ai", json());
    // The cut is inside the name of the first font that is left: neither the unfiltered text nor
    // the whole filtered one begins or ends like this.
    EXPECT_THAT(core->calls,
                ElementsAre("PluginIsEnabled(true, false)",
                            R"(InvokeResolveDialog("[{"PostScriptName":"Fi", 22))",
                            R"(ActivateChosenFonts("/a.ai", "[{"PostScriptName":"Fi", 0))"));
}

// An unfiltered text isn't copied back, so it isn't cut.
TEST_F(FileFormatCheck, DoesNotCutAnUnfilteredTextAtTheSizeThatOpeningLeft)
{
    core.Loader().pfHandleOpenExistingDocument = [](const char*, char* ioJson, size_t* ioSize,
                                                    int*) -> unsigned int {
        const std::string text = R"([{"PostScriptName":"First"},{"PostScriptName":"B"}])";
        (void)text.copy(ioJson, text.size());
        *ioSize = 22;
        return 0;
    };
    HandleCheckFileFormat("/a.ai", json());
    EXPECT_EQ(R"(InvokeResolveDialog("[{"PostScriptName":"First"},{"PostScriptName":"B"}]", 22))",
              core->calls[1]);
}

TEST_F(FileFormatCheck, AcceptsASizeLargerThanTheBuffer)
{
    core.Loader().pfHandleOpenExistingDocument = [](const char*, char* ioJson, size_t* ioSize,
                                                    int*) -> unsigned int {
        const std::string text = R"([{"PostScriptName":"HostSans"},{"PostScriptName":"A"}])";
        (void)text.copy(ioJson, text.size());
        *ioSize = kBufferSize * 4;
        return 0;
    };
    HandleCheckFileFormat("/a.ai", json());
    EXPECT_THAT(core->calls, ::testing::Contains(
                                 "InvokeResolveDialog(\"[{\"PostScriptName\":\"A\"}]\", 4194304)"));
}

// The buffer can be memory that was used before, for instance by the check before this one.
TEST_F(FileFormatCheck, ATextWithoutAnEndEndsWherePluginCoreStoppedWriting)
{
    static std::string sText;
    core.Loader().pfHandleOpenExistingDocument = [](const char*, char* ioJson, size_t* ioSize,
                                                    int*) -> unsigned int {
        EXPECT_EQ(*ioSize, static_cast<size_t>(std::count(ioJson, ioJson + *ioSize, '\0')));
        (void)sText.copy(ioJson, *ioSize);
        return 0;
    };
    const std::string text = R"([{"PostScriptName":"A"}])";
    for (const size_t size : {kBufferSize, text.size(), size_t{5000}, text.size()}) {
        sText = text + std::string(size - text.size(), ' ');
        core->calls.clear();
        HandleCheckFileFormat("/a.ai", json());
        ASSERT_EQ(3U, core->calls.size());
        EXPECT_EQ("InvokeResolveDialog(\"" + sText + "\", 1048576)", core->calls[1]);
    }
}

TEST_F(FileFormatCheck, APluginCoreThatWritesNothingAfterALongTextHasNothingToResolve)
{
    core->openAnswer = std::string(kBufferSize - 1, 'x');
    EXPECT_THROW(HandleCheckFileFormat("/a.ai", json()), json::exception);
    core->openAnswer.reset();
    core->calls.clear();
    HandleCheckFileFormat("/a.ai", json());
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleOpenExistingDocument"));
    EXPECT_TRUE(Suppressing());
}

// Numbers can get longer when they are written again, and so can the filtered text.
TEST_F(FileFormatCheck, CutsAFilteredTextThatIsLongerThanTheBuffer)
{
    core.Loader().pfHandleOpenExistingDocument = [](const char*, char* ioJson, size_t* ioSize,
                                                    int*) -> unsigned int {
        std::string text = R"([{"PostScriptName":"HostSans"},{"PostScriptName":"A","n":[0)";
        while (text.size() < kBufferSize - 100) text += ",1e9";
        text += "]}]";
        (void)text.copy(ioJson, text.size());
        *ioSize = kBufferSize * 4;
        return 0;
    };
    core.Loader().pfInvokeResolveDialog = [](char* ioJson, size_t* ioSize) -> unsigned int {
        *ioSize = std::string(ioJson).size();
        *ioJson = '\0';
        return 0;
    };
    HandleCheckFileFormat("/a.ai", json());
    EXPECT_TRUE(HasTrace("InvokeResolveDialog(..., OUT bufSize=1048576) returned 0"));
}

TEST_F(FileFormatCheck, ThrowsTheJsonErrorForMalformedTextOfPluginCore)
{
    core->openAnswer = "[{";
    EXPECT_THROW(HandleCheckFileFormat("/a.ai", json()), json::exception);
    EXPECT_EQ("HandleOpenExistingDocument", core->CalledNames().back());
}

TEST_F(FileFormatCheck, ReadsThePathOfTheMessageAsUTF8)
{
    ScriptedFileFormatMessage message = host.FileFormatMessage("/\xE6\x96\x87.ai");
    EXPECT_EQ("/\xE6\x96\x87.ai", GetDocumentPathFromFileFormatMessage(&message.record));
}

// PluginCore's text can be any: walking it must not overflow the stack.
TEST_F(FileFormatCheck, TextThatIsNestedTooDeepIsLikeOneThatDoesNotParse)
{
    core->openAnswer = std::string(100000, '[') + std::string(100000, ']');
    EXPECT_EQ(0, SendCheck("/a.ai"));
    EXPECT_TRUE(HasTrace("Unhandled exception in Typeloft plugin."));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleOpenExistingDocument"));
    EXPECT_FALSE(Suppressing());
}

}  // namespace
