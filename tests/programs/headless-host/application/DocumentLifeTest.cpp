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

TEST_F(DocumentLifeTest, EachChangeIsTold)
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
    EXPECT_EQ(Current().art.size(), 2u);
}

TEST_F(DocumentLifeTest, ASaveTellsTheCommandAndThenTheDisk)
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

TEST_F(DocumentLifeTest, ASaveThatFailsChangesAndTellsNothing)
{
    Do("new");
    Do("change");
    (void)TakeMessages();
    for (const char* const line :
         {"save nowhere/a.pdf", "save a.txt", "save none", "save .pdf/a.ai"}) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(Try(line).outcome, LineOutcome::kFileFailed) << line;
        EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("can't be saved: ")) << line;
    }
    EXPECT_THAT(TakeMessages(), testing::IsEmpty());
    EXPECT_TRUE(Current().isModified);
    EXPECT_EQ(Current().path, "Untitled-1");
}

TEST_F(DocumentLifeTest, TwoOpenDocumentsDoNotShareAFile)
{
    Do("new");
    Do("save a.pdf");
    Do("new");
    testing::internal::CaptureStderr();
    EXPECT_EQ(Try("save a.pdf").outcome, LineOutcome::kFileFailed);
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("another open document"));
}

TEST_F(DocumentLifeTest, TheDocumentIsGoneWhenItsCloseIsTold)
{
    Do("new");
    const std::string name = Name();
    (void)TakeMessages();
    Do("close");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Document About To Close Notifier " + name,
                                            "AI Document Closed Notifier " + name));
    EXPECT_EQ(host->GetCurrentDocument(), nullptr);
}

TEST_F(DocumentLifeTest, AfterACloseTheOneThatWasCurrentBeforeIsSoAgain)
{
    for (int i = 0; i < 3; ++i) Do("new");
    Do("current 1");
    Do("current Untitled-2");
    Do("close");
    EXPECT_EQ(Current().path, "Untitled-1");
    Do("close Untitled-1");
    EXPECT_EQ(Current().path, "Untitled-3");
}

TEST_F(DocumentLifeTest, ACloseInTheBackgroundLeavesTheCurrentOne)
{
    Do("new");
    Do("new");
    Do("close 1");
    EXPECT_EQ(Current().path, "Untitled-2");
    Do("expect documents 1");
}

TEST_F(DocumentLifeTest, ATemplateIsUntitledUntilItIsSaved)
{
    content.document.isTemplate = true;
    MakeFile("form.ait");
    Do("open form.ait");
    EXPECT_EQ(Try("save").outcome, LineOutcome::kWrong);
    Do("save filled.ai");
    EXPECT_TRUE(Current().hasFile);
    Do("expect file filled.ai");
}

TEST_F(DocumentLifeTest, TimersFollowTheTicks)
{
    Do("tick 3");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Go every tick", "AI Go every tick",
                                            "AI Go every tick", "AI Go every third"));
}

TEST_F(DocumentLifeTest, FontsAndTheAboutBox)
{
    Do("fonts-changed");
    Do("about");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Font List Changed Notifier null", "About"));
}

TEST_F(DocumentLifeTest, ShowingTheMenusAsksTheItemsThatWantIt)
{
    Do("show menu");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Update Plain", "AI Update More", "AI Update Deep"));
    Do("menu More/Deep");
    EXPECT_THAT(TakeMessages(), ElementsAre("AI Go Deep"));
}
