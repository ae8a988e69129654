#include "HostFixture.h"

using headless::DialogOutcome;
using headless::FontState;
using testing::ElementsAre;

class ApplicationTest : public HostFixture {
protected:
    // "caller selector" and what tells the message from others, one entry per message sent.
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

TEST_F(ApplicationTest, SpeaksInTheOrderOfARealHost)
{
    WriteJournal();
    RunPlugin("well-behaved", {"a.pdf"});
    const auto messages = ListMessages();
    ASSERT_EQ(messages.size(), 9u);
    EXPECT_EQ(messages[0], "Startup");
    EXPECT_EQ(messages[1], "AI Check high");
    EXPECT_EQ(messages[2], "AI Check low");
    EXPECT_EQ(messages[3], "AI Check low again");
    EXPECT_THAT(messages[4],
                testing::StartsWith("AI Notify AI Document Opened Notifier document#"));
    EXPECT_THAT(messages[5],
                testing::StartsWith("AI Notify AI Document Closed Notifier document#"));
    EXPECT_EQ(messages[6], "AI Notify AI Application Shutdown Notifier null");
    EXPECT_EQ(messages[7], "Shutdown");
    EXPECT_EQ(messages[8], "Unload");
    EXPECT_THAT(host->violations.Lines(), testing::IsEmpty());
}

TEST_F(ApplicationTest, DocumentsStayOpenUntilTheEnd)
{
    WriteJournal();
    RunPlugin("well-behaved", {"a.pdf", "b.pdf"});
    std::vector<std::string> kinds;
    for (const std::string& message : ListMessages()) {
        if (message.find("Opened") != std::string::npos) kinds.push_back("opened");
        if (message.find("Closed") != std::string::npos) kinds.push_back("closed");
    }
    EXPECT_EQ(kinds, (std::vector<std::string>{"opened", "opened", "closed", "closed"}));
}

TEST_F(ApplicationTest, TellsWhatBecameOfEachFont)
{
    fonts.active = {"Default-Regular", "Here"};
    AddFrame({"Default-Regular", "Here", "Comes", "Gone"});
    auto* const source = &fonts;
    host->reader = [this, source](const std::string&) {
        source->active.insert("Comes");
        return content;
    };
    RunPlugin("well-behaved", {"a.pdf"});
    ASSERT_EQ(reports.size(), 1u);
    ASSERT_EQ(reports[0].fonts.size(), 4u);
    EXPECT_EQ(reports[0].fonts[0].state, FontState::kDefault);
    EXPECT_EQ(reports[0].fonts[1].state, FontState::kActive);
    EXPECT_EQ(reports[0].fonts[2].state, FontState::kActivated);
    EXPECT_EQ(reports[0].fonts[3].state, FontState::kMissing);
    EXPECT_TRUE(reports[0].HasMissingFont());
    EXPECT_EQ(reports[0].dialog, DialogOutcome::kDismissed);
}

TEST_F(ApplicationTest, NamesAreComparedByteForByte)
{
    fonts.active = {"default-regular", "Default-Regular"};
    AddFrame({"DEFAULT-Regular"});
    RunPlugin("well-behaved", {"a.pdf"});
    EXPECT_EQ(reports[0].fonts[0].state, FontState::kMissing);
}

TEST_F(ApplicationTest, NoDialogWithoutAMissingFont)
{
    AddFrame({"Default-Regular"});
    RunPlugin("well-behaved", {"a.pdf"});
    EXPECT_EQ(reports[0].dialog, DialogOutcome::kNone);
    EXPECT_FALSE(reports[0].HasMissingFont());
}

TEST_F(ApplicationTest, ADialogThatNobodyDismissesIsShown)
{
    AddFrame({"Gone"});
    RunPlugin("leaks-suite", {"a.pdf"});
    EXPECT_EQ(reports[0].dialog, DialogOutcome::kShown);
    EXPECT_EQ(reports[0].dialogTitle, "Missing Fonts");
}

TEST_F(ApplicationTest, ATemplateOpensAsAnUntitledCopy)
{
    content.document.isTemplate = true;
    headless::DocumentObject* const first = host->AddDocument(content.document, "/a/b.ait");
    headless::DocumentObject* const second = host->AddDocument(content.document, "/a/b.ait");
    EXPECT_EQ(first->path, "Untitled-1");
    EXPECT_EQ(second->path, "Untitled-2");
    EXPECT_FALSE(first->hasFile);
    EXPECT_EQ(host->GetCurrentDocument(), second);
}

TEST_F(ApplicationTest, AFileThatFailsGetsNoDocument)
{
    WriteJournal();
    content.ok = false;
    content.error = "is encrypted";
    RunPlugin("well-behaved", {"a.pdf"});
    EXPECT_FALSE(reports[0].opened);
    EXPECT_EQ(reports[0].error, "is encrypted");
    const auto messages = ListMessages();
    EXPECT_EQ(messages[1], "AI Check high") << "the check comes before the reading";
    for (const std::string& message : messages) {
        EXPECT_EQ(message.find("Opened"), std::string::npos);
    }
}

TEST_F(ApplicationTest, TheFileFormatsAreNotAskedAboutWhatIsNoFile)
{
    WriteJournal();
    content.ok = false;
    content.error = "is a folder";
    headless::Application application(*host, "en");
    std::string error;
    ASSERT_TRUE(application.Start(GetPluginPath("well-behaved"), error)) << error;
    EXPECT_EQ(application.Open(folder, "folder").error, "is a folder");
    for (const std::string& message : ListMessages()) {
        EXPECT_EQ(message.find("Check"), std::string::npos);
    }
}

TEST_F(ApplicationTest, AReaderThatThrowsIsOneFailedFile)
{
    host->reader = [](const std::string&) -> documents::OpenResult {
        throw std::runtime_error("out of luck");
    };
    RunPlugin("well-behaved", {"a.pdf", "b.pdf"});
    EXPECT_EQ(reports[1].error, "out of luck");
}
