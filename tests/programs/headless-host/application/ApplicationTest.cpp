#include "HostFixture.h"

using headless::DialogOutcome;
using headless::FontState;
using testing::ElementsAre;

class ApplicationTest : public HostFixture {
protected:
    // The selector of each message sent, with the format, the notifier type and its data.
    std::vector<std::string> ListMessages() const
    {
        std::vector<std::string> messages;
        for (const auto& line : ReadJournal()) {
            if (line["side"] != "host" || line["op"] != "send") continue;
            const auto& args = line["args"];
            std::string text = args["selector"];
            for (const char* const member : {"format", "type", "notifyData"}) {
                if (args.contains(member)) text += " " + args[member].get<std::string>();
            }
            messages.push_back(text);
        }
        return messages;
    }
};

TEST_F(ApplicationTest, SendsMessagesInTheOrderOfARealHost)
{
    WriteJournal();
    RunPlugin("well-behaved", {"a.pdf"});
    const auto messages = ListMessages();
    ASSERT_EQ(9U, messages.size());
    EXPECT_EQ("Startup", messages[0]);
    EXPECT_EQ("AI Check high", messages[1]);
    EXPECT_EQ("AI Check low", messages[2]);
    EXPECT_EQ("AI Check low again", messages[3]);
    EXPECT_THAT(messages[4],
                testing::StartsWith("AI Notify AI Document Opened Notifier document#"));
    EXPECT_THAT(messages[5],
                testing::StartsWith("AI Notify AI Document Closed Notifier document#"));
    EXPECT_EQ("AI Notify AI Application Shutdown Notifier null", messages[6]);
    EXPECT_EQ("Shutdown", messages[7]);
    EXPECT_EQ("Unload", messages[8]);
    EXPECT_THAT(host->violations.Lines(), testing::IsEmpty());
}

TEST_F(ApplicationTest, DocumentsRemainOpenUntilTheShutdown)
{
    WriteJournal();
    RunPlugin("well-behaved", {"a.pdf", "b.pdf"});
    std::vector<std::string> kinds;
    for (const std::string& message : ListMessages()) {
        if (message.find("Opened") != std::string::npos) kinds.push_back("opened");
        if (message.find("Closed") != std::string::npos) kinds.push_back("closed");
    }
    EXPECT_EQ((std::vector<std::string>{"opened", "opened", "closed", "closed"}), kinds);
}

TEST_F(ApplicationTest, AFontIsFoundWithoutTheEncodingBehindItsName)
{
    fonts.active = {"Default-Regular", "Here"};
    AddFrame({"Here-Identity-H", "Default-Regular-Identity-V"});
    RunPlugin("well-behaved", {"a.pdf"});
    ASSERT_EQ(2U, reports[0].fonts.size());
    EXPECT_EQ("Here-Identity-H", reports[0].fonts[0].postScriptName);
    EXPECT_EQ(FontState::kActive, reports[0].fonts[0].state);
    EXPECT_EQ(FontState::kDefault, reports[0].fonts[1].state);
    EXPECT_EQ(DialogOutcome::kNone, reports[0].dialog);
}

TEST_F(ApplicationTest, ReportsTheStateOfEachFont)
{
    fonts.active = {"Default-Regular", "Here"};
    AddFrame({"Default-Regular", "Here", "Comes", "Gone"});
    auto* const source = &fonts;
    host->reader = [this, source](const std::string&) {
        source->active.insert("Comes");
        return content;
    };
    RunPlugin("well-behaved", {"a.pdf"});
    ASSERT_EQ(1U, reports.size());
    ASSERT_EQ(4U, reports[0].fonts.size());
    EXPECT_EQ(FontState::kDefault, reports[0].fonts[0].state);
    EXPECT_EQ(FontState::kActive, reports[0].fonts[1].state);
    EXPECT_EQ(FontState::kActivated, reports[0].fonts[2].state);
    EXPECT_EQ(FontState::kMissing, reports[0].fonts[3].state);
    EXPECT_TRUE(reports[0].HasMissingFont());
    EXPECT_EQ(DialogOutcome::kDismissed, reports[0].dialog);
}

TEST_F(ApplicationTest, ComparesFontNamesByteForByte)
{
    fonts.active = {"default-regular", "Default-Regular"};
    AddFrame({"DEFAULT-Regular"});
    RunPlugin("well-behaved", {"a.pdf"});
    EXPECT_EQ(FontState::kMissing, reports[0].fonts[0].state);
}

TEST_F(ApplicationTest, RunsNoDialogWithoutAMissingFont)
{
    AddFrame({"Default-Regular"});
    RunPlugin("well-behaved", {"a.pdf"});
    EXPECT_EQ(DialogOutcome::kNone, reports[0].dialog);
    EXPECT_FALSE(reports[0].HasMissingFont());
}

TEST_F(ApplicationTest, MissesFontsThatOnlyTheDocumentsOwnListHas)
{
    AddFrame({"Default-Regular"});
    content.document.fontList = {"Gone", "Default-Regular"};
    RunPlugin("well-behaved", {"a.pdf"});
    ASSERT_EQ(2U, reports[0].fonts.size());
    EXPECT_FALSE(reports[0].fonts[0].isListed);
    EXPECT_EQ("Gone", reports[0].fonts[1].postScriptName);
    EXPECT_TRUE(reports[0].fonts[1].isListed);
    EXPECT_EQ(FontState::kMissing, reports[0].fonts[1].state);
    EXPECT_EQ(DialogOutcome::kDismissed, reports[0].dialog);
    EXPECT_EQ(1U, reports[0].runs);
}

TEST_F(ApplicationTest, ShowsADialogThatIsNotDismissed)
{
    AddFrame({"Gone"});
    RunPlugin("leaks-suite", {"a.pdf"});
    EXPECT_EQ(DialogOutcome::kShown, reports[0].dialog);
    EXPECT_EQ("Missing Fonts", reports[0].dialogTitle);
}

TEST_F(ApplicationTest, ATemplateOpensAsAnUntitledCopy)
{
    content.document.isTemplate = true;
    headless::DocumentObject* const first = host->AddDocument(content.document, "/a/b.ait");
    headless::DocumentObject* const second = host->AddDocument(content.document, "/a/b.ait");
    EXPECT_EQ("Untitled-1", first->path);
    EXPECT_EQ("Untitled-2", second->path);
    EXPECT_FALSE(first->hasFile);
    EXPECT_EQ(second, host->GetCurrentDocument());
}

TEST_F(ApplicationTest, AddsNoDocumentForAFileThatFails)
{
    WriteJournal();
    content.ok = false;
    content.error = "is encrypted";
    RunPlugin("well-behaved", {"a.pdf"});
    EXPECT_FALSE(reports[0].opened);
    EXPECT_EQ("is encrypted", reports[0].error);
    const auto messages = ListMessages();
    EXPECT_EQ("AI Check high", messages[1]) << "the check is sent before the file is read";
    for (const std::string& message : messages) {
        EXPECT_EQ(message.find("Opened"), std::string::npos);
    }
}

TEST_F(ApplicationTest, SendsNoCheckForAFolder)
{
    WriteJournal();
    content.ok = false;
    content.error = "is a folder";
    headless::Application application(*host, "en");
    std::string error;
    ASSERT_TRUE(application.Start(GetPluginPath("well-behaved"), error)) << error;
    EXPECT_EQ("is a folder", application.Open(folder, "folder").error);
    for (const std::string& message : ListMessages()) {
        EXPECT_EQ(message.find("Check"), std::string::npos);
    }
}

TEST_F(ApplicationTest, AReaderThatThrowsFailsForItsFileOnly)
{
    host->reader = [](const std::string&) -> documents::OpenResult {
        throw std::runtime_error("out of luck");
    };
    RunPlugin("well-behaved", {"a.pdf", "b.pdf"});
    EXPECT_EQ("out of luck", reports[1].error);
}

TEST_F(ApplicationTest, ADocumentThatTakesThePluginTooLongIsClosedWithOneLine)
{
    AddFrame({"A"});
    double now = 0;
    host->walkLimit.clock = [&now] { return now += headless::TextWalkLimit::kSeconds + 1; };
    headless::Application application(*host, "en");
    std::string error;
    ASSERT_TRUE(application.Start(GetPluginPath("reads-two-text-ranges"), error)) << error;
    const headless::OpenReport report = application.Open(folder + "/a.pdf", "a.pdf");
    EXPECT_FALSE(report.opened);
    EXPECT_EQ("takes the plug-in longer than 30 s to read", report.error);
    EXPECT_THAT(host->GetDocuments(), testing::IsEmpty());
    EXPECT_THAT(host->violations.Lines(), testing::IsEmpty());
}
