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

class FileFormatCheck : public MessageTest {
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
    EXPECT_EQ(SendCheck("/folder/m\xC3\xBCll.ai"), -1);
    EXPECT_EQ(GetFilePathForDocumentHandle(nullptr), "/folder/m\xC3\xBCll.ai");
}

TEST_F(FileFormatCheck, AsksTheHostForTheFullPathInItsPlainForm)
{
    EXPECT_EQ(SendCheck("/folder/a.ai"), -1);
    EXPECT_EQ(host.CountCalls("AIFilePathSuite.GetFullPath(\"/folder/a.ai\", false)"), 1U);
    EXPECT_EQ(host.CountCalls("AIFilePathSuite.GetFileName"), 0U);
}

TEST_F(FileFormatCheck, EmptyPathIsNeitherStoredNorChecked)
{
    SetFilePathForDocumentHandle(nullptr, "/before.ai");
    EXPECT_EQ(SendCheck(""), -1);
    EXPECT_EQ(GetFilePathForDocumentHandle(nullptr), "/before.ai");
    EXPECT_THAT(core->calls, IsEmpty());
}

TEST_F(FileFormatCheck, DisabledStoresThePathAndAsksNothingMore)
{
    core->enabled = false;
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_EQ(GetFilePathForDocumentHandle(nullptr), "/a.ai");
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)"));
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, NothingToResolveStartsThePeriod)
{
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)", Open("/a.ai", "")));
    EXPECT_TRUE(HasTrace("SetSuppressionOfMissingFontsDialog(until 15 seconds from now)"));
    FakeClock::Advance(14);
    EXPECT_TRUE(Suppressing());
    FakeClock::Advance(1);
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, FileOfAnyKindIsChecked)
{
    EXPECT_EQ(SendCheck("/notes.txt"), -1);
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleOpenExistingDocument"));
}

TEST_F(FileFormatCheck, ChosenFontsAreActivatedAndStartThePeriod)
{
    core->openAnswer = kTwoFonts;
    core->resolveAnswer = R"([{"PostScriptName":"B"}])";
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_THAT(core->calls,
                ElementsAre("PluginIsEnabled(true, false)", Open("/a.ai", ""),
                            "InvokeResolveDialog(\"" + std::string(kTwoFonts) + "\", 1048576)",
                            "ActivateChosenFonts(\"/a.ai\", \"[{\"PostScriptName\":\"B\"}]\", 0)"));
    EXPECT_TRUE(Suppressing());
}

TEST_F(FileFormatCheck, HostsDefaultFontsAreTakenOutBeforeTheDialog)
{
    core->openAnswer = R"({ "LinkedDocuments":[], "DocumentFonts":)"
                       R"([{"PostScriptName":"HostSans-Bold"},{"PostScriptName":"A"}]})";
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_THAT(
        core->calls,
        ::testing::Contains("InvokeResolveDialog(\"{\"DocumentFonts\":[{\"PostScriptName\":\"A\"}],"
                            "\"LinkedDocuments\":[]}\", 1048576)"));
}

TEST_F(FileFormatCheck, TextWithoutDefaultFontsKeepsItsBytes)
{
    core->openAnswer = R"({ "DocumentFonts" : [ {"PostScriptName":"A"} ] })";
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_THAT(core->calls,
                ::testing::Contains("InvokeResolveDialog(\"" + *core->openAnswer + "\", 1048576)"));
}

TEST_F(FileFormatCheck, EmptyListStillOpensTheDialog)
{
    core->openAnswer = R"({"DocumentFonts":[{"PostScriptName":"HostSans-Regular"}]})";
    core->resolveAnswer = "";
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_THAT(core->calls,
                ::testing::Contains("InvokeResolveDialog(\"{\"DocumentFonts\":[]}\", 1048576)"));
}

TEST_F(FileFormatCheck, DialogWithoutAChoiceIsTracedAndStartsNoPeriod)
{
    core->openAnswer = kTwoFonts;
    core->resolveAnswer = "";
    core->resolveSize = 17;
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_TRUE(HasTrace("InvokeResolveDialog(..., OUT bufSize=17) returned 0"));
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled", "HandleOpenExistingDocument",
                                                 "InvokeResolveDialog"));
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, DialogThatFailsWithoutAChoiceIsTracedWithItsStatus)
{
    core->openAnswer = kTwoFonts;
    core->resolveAnswer = "";
    core->statuses["InvokeResolveDialog"] = 9;
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_TRUE(HasTrace("InvokeResolveDialog(..., OUT bufSize=1048576) returned 9"));
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, DialogThatFailsWithFontsActivatesThemWithoutAPeriod)
{
    core->openAnswer = kTwoFonts;
    core->statuses["InvokeResolveDialog"] = 9;
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_EQ(core->CalledNames().back(), "ActivateChosenFonts");
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, FailedActivationStartsNoPeriod)
{
    core->openAnswer = kTwoFonts;
    core->statuses["ActivateChosenFonts"] = 9;
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_EQ(core->CalledNames().back(), "ActivateChosenFonts");
    EXPECT_FALSE(Suppressing());
}

TEST_F(FileFormatCheck, StatusesOfTheFirstTwoCallsAreNotRead)
{
    core->statuses["PluginIsEnabled"] = 9;
    core->statuses["HandleOpenExistingDocument"] = 9;
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_EQ(core->CalledNames().back(), "HandleOpenExistingDocument");
    EXPECT_TRUE(Suppressing());
}

TEST_F(FileFormatCheck, FontsGoInAsCompactText)
{
    HandleCheckFileFormat("/a.ai", json::parse(R"([ {"PostScriptName": "Schrift-ü"} ])"));
    EXPECT_THAT(core->openTexts, ElementsAre("[{\"PostScriptName\":\"Schrift-\xC3\xBC\"}]"));
}

TEST_F(FileFormatCheck, FontsWithNothingToResolveStartThePeriodWithoutADialog)
{
    HandleCheckFileFormat("/a.ai", kFonts);
    EXPECT_THAT(core->calls, ElementsAre("PluginIsEnabled(true, false)",
                                         Open("/a.ai", "[{\"PostScriptName\":\"A\"}]")));
    EXPECT_TRUE(Suppressing());
}

TEST_F(FileFormatCheck, NullFontsGoInAsTheEmptyText)
{
    HandleCheckFileFormat("/a.ai", json());
    EXPECT_THAT(core->openTexts, ElementsAre(""));
}

TEST_F(FileFormatCheck, EmptyPathIsCheckedIfItIsAskedFor)
{
    HandleCheckFileFormat("", json());
    EXPECT_THAT(core->calls, ::testing::Contains(Open("", "")));
}

TEST_F(FileFormatCheck, FontsThatAreNotUTF8ThrowTheLibrarysError)
{
    EXPECT_THROW(HandleCheckFileFormat("/a.ai", json("\xFF")), json::exception);
    EXPECT_THAT(core->CalledNames(), ElementsAre("PluginIsEnabled"));
}

TEST_F(FileFormatCheck, TextLongerThanTheBufferIsCutToIt)
{
    const json fonts = std::string(kBufferSize + 100, 'x');
    HandleCheckFileFormat("/a.ai", fonts);
    ASSERT_EQ(core->openTexts.size(), 1U);
    EXPECT_EQ(core->openTexts[0], "\"" + std::string(kBufferSize - 1, 'x'));
}

TEST_F(FileFormatCheck, TextOfExactlyTheBufferIsWhole)
{
    const json fonts = std::string(kBufferSize - 2, 'x');
    HandleCheckFileFormat("/a.ai", fonts);
    ASSERT_EQ(core->openTexts.size(), 1U);
    EXPECT_EQ(core->openTexts[0], fonts.dump());
}

// The size goes by pointer through all calls, so what one leaves there the next is told.
TEST_F(FileFormatCheck, SizeThatOpeningLeftIsTheDialogsSize)
{
    core.Loader().pfHandleOpenExistingDocument = [](const char*, char* ioJson, size_t* ioSize,
                                                    int*) -> unsigned int {
        const std::string text = R"([{"PostScriptName":"A"}])";
        (void)text.copy(ioJson, text.size());
        *ioSize = 77;
        return 0;
    };
    EXPECT_EQ(SendCheck("/a.ai"), -1);
    EXPECT_THAT(core->calls,
                ::testing::Contains("InvokeResolveDialog(\"[{\"PostScriptName\":\"A\"}]\", 77)"));
}

// The copy of the filtered text is cut at what opening left as the size.
TEST_F(FileFormatCheck, FilteredTextIsCutAtTheSizeThatOpeningLeft)
{
    core.Loader().pfHandleOpenExistingDocument = [](const char*, char* ioJson, size_t* ioSize,
                                                    int*) -> unsigned int {
        const std::string text = R"([{"PostScriptName":"HostSans"},{"PostScriptName":"A"}])";
        (void)text.copy(ioJson, text.size());
        *ioSize = 10;
        return 0;
    };
    HandleCheckFileFormat("/a.ai", json());
    // The ten bytes of the cut stand in front of whatever the buffer held behind them.
    const std::string call = core->calls[1];
    EXPECT_EQ(call.compare(0, 31, "InvokeResolveDialog(\"[{\"PostScr"), 0) << call;
    EXPECT_EQ(call.substr(call.size() - 4), " 10)");
}

TEST_F(FileFormatCheck, SizeBeyondTheBufferDoesNoHarm)
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

// Numbers grow when they are written anew, so the filtered text can be longer than what came.
TEST_F(FileFormatCheck, FilteredTextLongerThanTheBufferIsCutToIt)
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

TEST_F(FileFormatCheck, BrokenTextFromPluginCoreThrowsTheLibrarysError)
{
    core->openAnswer = "[{";
    EXPECT_THROW(HandleCheckFileFormat("/a.ai", json()), json::exception);
    EXPECT_EQ(core->CalledNames().back(), "HandleOpenExistingDocument");
}

TEST_F(FileFormatCheck, PathOfTheMessageComesInUTF8)
{
    ScriptedFileFormatMessage message = host.FileFormatMessage("/\xE6\x96\x87.ai");
    EXPECT_EQ(GetDocumentPathFromFileFormatMessage(&message.record), "/\xE6\x96\x87.ai");
}

}  // namespace
