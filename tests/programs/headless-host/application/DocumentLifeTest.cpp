#include <filesystem>
#include <fstream>

#include "SessionFixture.h"
#include "documents/OpenDocument.h"

using headless::LineOutcome;
using testing::ElementsAre;
using testing::HasSubstr;

class DocumentLifeTest : public SessionFixture {
protected:
    // The current document as a message names it.
    std::string Name() const { return host->handles.Describe(Current().handle); }
};

TEST_F(DocumentLifeTest, EachChangeIsNotified)
{
    Do("new");
    const std::string name = Name();
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Document New Notifier " + name));
    EXPECT_FALSE(Current().isModified);
    Do("text Some-Font a few words");
    Do("change");
    MakeFile("placed.ai");
    Do("place placed.ai");
    const std::string changed = "AI Document Changed Notifier " + name;
    EXPECT_THAT(TakeMessages(), ElementsAre(changed, changed, changed));
    EXPECT_TRUE(Current().isModified);
    EXPECT_THAT(Current().content.fonts, ElementsAre("Some-Font"));
    EXPECT_THAT(Current().content.linkedFiles, ElementsAre(folder + "/placed.ai"));
    EXPECT_EQ(2U, Current().art.size());
}

TEST_F(DocumentLifeTest, ASaveNotifiesTheCommandAndThenTheDisk)
{
    Do("new");
    const std::string disk = "AI Document Write On Disk Complete Notifier " + Name();
    (void)TakeMessages();
    Do("save a.pdf");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Command Notifier: After Save As null", disk));
    EXPECT_EQ(Current().path, folder + "/a.pdf");
    Do("change");
    (void)TakeMessages();
    Do("save");
    EXPECT_FALSE(Current().isModified);
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Command Notifier: After Save null", disk));
}

TEST_F(DocumentLifeTest, ASaveThatFailsChangesAndNotifiesNothing)
{
    Do("new");
    Do("change");
    (void)TakeMessages();
    for (const char* const line :
         {"save nowhere/a.pdf", "save a.txt", "save none", "save .pdf/a.ai"}) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(LineOutcome::kFileFailed, Try(line).outcome) << line;
        EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("cannot be saved: ")) << line;
    }
    EXPECT_THAT(TakeMessages(), testing::IsEmpty());
    EXPECT_TRUE(Current().isModified);
    EXPECT_EQ("Untitled-1", Current().path);
}

TEST_F(DocumentLifeTest, TwoOpenDocumentsDoNotShareAFile)
{
    Do("new");
    Do("save a.pdf");
    Do("new");
    testing::internal::CaptureStderr();
    EXPECT_EQ(LineOutcome::kFileFailed, Try("save a.pdf").outcome);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("another open document"));
}

TEST_F(DocumentLifeTest, TheDocumentIsGoneWhenItsCloseIsNotified)
{
    Do("new");
    const std::string name = Name();
    (void)TakeMessages();
    Do("close");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Document About To Close Notifier " + name,
                                            "AI Document Closed Notifier " + name));
    EXPECT_EQ(nullptr, host->GetCurrentDocument());
}

TEST_F(DocumentLifeTest, AfterACloseThePreviousDocumentIsCurrentAgain)
{
    for (int i = 0; i < 3; ++i) Do("new");
    Do("current 1");
    Do("current Untitled-2");
    Do("close");
    EXPECT_EQ("Untitled-1", Current().path);
    Do("close Untitled-1");
    EXPECT_EQ("Untitled-3", Current().path);
}

TEST_F(DocumentLifeTest, ClosingAnotherDocumentKeepsTheCurrentOne)
{
    Do("new");
    Do("new");
    Do("close 1");
    EXPECT_EQ("Untitled-2", Current().path);
    Do("expect documents 1");
}

TEST_F(DocumentLifeTest, ATemplateIsUntitledUntilItIsSaved)
{
    content.document.isTemplate = true;
    MakeFile("form.ait");
    Do("open form.ait");
    EXPECT_EQ(LineOutcome::kImpossible, Try("save").outcome);
    Do("save filled.ai");
    EXPECT_TRUE(Current().hasFile);
    Do("expect file filled.ai");
}

TEST_F(DocumentLifeTest, TimersAreSentAtTheTicksOfTheirPeriod)
{
    Do("tick 3");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Go every tick", "AI Go every tick",
                                            "AI Go every tick", "AI Go every third"));
}

TEST_F(DocumentLifeTest, SendsTheFontListNotifierAndTheAboutMessage)
{
    Do("fonts-changed");
    Do("about");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Font List Changed Notifier null", "About"));
}

TEST_F(DocumentLifeTest, ShowMenuUpdatesTheItemsThatAskForIt)
{
    Do("show menu");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Update Plain", "AI Update More", "AI Update Deep"));
    Do("menu More/Deep");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Go Deep"));
}
