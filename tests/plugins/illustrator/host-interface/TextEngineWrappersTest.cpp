#include <type_traits>

#include "HostInterfaceFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class TextEngineWrappers : public HostInterfaceTest {
protected:
    template <class Reference>
    Reference* New(const std::string& kind, std::vector<std::string> fonts)
    {
        return static_cast<Reference*>(host.NewReferenceOfKind(kind, std::move(fonts)));
    }

    // Makes the operation fail and expects `action` to throw an exception with the code.
    template <class Action>
    void ExpectException(const std::string& operation, Action action)
    {
        SCOPED_TRACE(operation);
        host.FailCall(operation, 1, 4711);
        try {
            action();
            ADD_FAILURE() << "nothing was thrown";
        } catch (const ATE::Exception& exception) {
            EXPECT_EQ(4711, exception.error);
        }
    }
};

TEST_F(TextEngineWrappers, ReleaseTheReferenceTheyWereMadeWith)
{
    {
        const ATE::ITextRange range(host.NewRunReference("A"));
        EXPECT_EQ(1U, host.LiveReferences());
    }
    EXPECT_THAT(host.Calls(), ElementsAre("ATE TextRange.Release()"));
}

TEST_F(TextEngineWrappers, NeverReleaseANullReference)
{
    {
        const ATE::ITextRange range(nullptr);
        const ATE::IFont font(nullptr);
        const ATE::ITextFrame frame(nullptr);
    }
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(TextEngineWrappers, TwoCopiesOfARangeAreTwoAddRefsAndThreeReleases)
{
    {
        const ATE::ITextRange range(host.NewRunReference("A"));
        const ATE::ITextRange second(range);
        const ATE::ITextRange third(second);
    }
    EXPECT_EQ(2U, host.CountCalls("ATE TextRange.AddRef"));
    EXPECT_EQ(3U, host.CountCalls("ATE TextRange.Release"));
}

TEST_F(TextEngineWrappers, DestructorsIgnoreTheResult)
{
    auto* const raw = host.NewRunReference("A");
    {
        const ATE::ITextRange range(raw);
        host.FailCall("ATE TextRange.Release", 1, 5);
    }
    EXPECT_EQ(1U, host.LiveReferences());
    const ATE::ITextRange again(raw);
}

TEST_F(TextEngineWrappers, LeadFromAFrameToTheFontsOfAllStories)
{
    host.AddDocument("/a.ai").storyFonts = {"X", kNullFont, "Y"};
    {
        const ATE::ITextFrame frame(New<ATE::_TextFrame>("TextFrame", {"X"}));
        const ATE::IArrayFontRef fonts =
            frame.GetStory().GetStories().GetTextRanges().GetCharInspector().GetFont();
        EXPECT_EQ(3, fonts.GetSize());
        EXPECT_FALSE(fonts.Item(0).IsNull());
        EXPECT_TRUE(fonts.Item(1).IsNull());
        EXPECT_NE(nullptr, fonts.Item(2).GetRef());
    }
    EXPECT_EQ(1U, host.CountCalls("ATE ArrayFontRef.Item(2)"));
}

TEST_F(TextEngineWrappers, IteratorVisitsEveryRun)
{
    const ATE::ITextRange range(New<ATE::_TextRange>("TextRange", {"A", "B"}));
    ATE::ITextRunsIterator iterator = range.GetTextRunsIterator();
    int runs = 0;
    for (; iterator.IsNotDone(); iterator.Next()) {
        const ATE::ITextRange run = iterator.Item();
        ++runs;
    }
    EXPECT_EQ(2, runs);
}

TEST_F(TextEngineWrappers, FeaturesReturnTheirFontWithOrWithoutTheFlag)
{
    const ATE::ITextRange range(host.NewRunReference("A"));
    const ATE::ICharFeatures features = range.GetUniqueCharFeatures();
    bool isAssigned = false;
    EXPECT_FALSE(features.GetFont(&isAssigned).IsNull());
    EXPECT_TRUE(isAssigned);
    EXPECT_FALSE(features.GetFont(nullptr).IsNull());
    EXPECT_EQ(1U, host.CountCalls("ATE CharFeatures.GetFont(null)"));
}

TEST_F(TextEngineWrappers, GetRefCallsNothing)
{
    const ATE::IFont font(host.NewFontReference("A"));
    EXPECT_NE(nullptr, font.GetRef());
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(TextEngineWrappers, EveryOperationThrowsItsCode)
{
    const ATE::ITextFrame frame(New<ATE::_TextFrame>("TextFrame", {}));
    const ATE::IStory story(New<ATE::_Story>("Story", {}));
    const ATE::IStories stories(New<ATE::_Stories>("Stories", {}));
    const ATE::ITextRanges ranges(New<ATE::_TextRanges>("TextRanges", {}));
    const ATE::ICharInspector inspector(New<ATE::_CharInspector>("CharInspector", {}));
    const ATE::IArrayFontRef fonts(New<ATE::_ArrayFontRef>("ArrayFontRef", {"A"}));
    const ATE::ITextRange range(New<ATE::_TextRange>("TextRange", {"A"}));
    const ATE::ICharFeatures features(New<ATE::_CharFeatures>("CharFeatures", {"A"}));
    ATE::ITextRunsIterator iterator(New<ATE::_TextRunsIterator>("TextRunsIterator", {"A"}));
    ExpectException("ATE TextFrame.GetStory", [&] { (void)frame.GetStory(); });
    ExpectException("ATE Story.GetStories", [&] { (void)story.GetStories(); });
    ExpectException("ATE Stories.GetTextRanges", [&] { (void)stories.GetTextRanges(); });
    ExpectException("ATE TextRanges.GetCharInspector", [&] { (void)ranges.GetCharInspector(); });
    ExpectException("ATE CharInspector.GetFont", [&] { (void)inspector.GetFont(); });
    ExpectException("ATE ArrayFontRef.GetSize", [&] { (void)fonts.GetSize(); });
    ExpectException("ATE ArrayFontRef.Item", [&] { (void)fonts.Item(0); });
    ExpectException("ATE TextRange.GetTextRunsIterator",
                    [&] { (void)range.GetTextRunsIterator(); });
    ExpectException("ATE TextRange.GetUniqueCharFeatures",
                    [&] { (void)range.GetUniqueCharFeatures(); });
    ExpectException("ATE CharFeatures.GetFont", [&] { (void)features.GetFont(nullptr); });
    ExpectException("ATE TextRunsIterator.IsNotDone", [&] { (void)iterator.IsNotDone(); });
    ExpectException("ATE TextRunsIterator.Next", [&] { iterator.Next(); });
    ExpectException("ATE TextRunsIterator.Item", [&] { (void)iterator.Item(); });
}

TEST_F(TextEngineWrappers, ArePolymorphicAndHoldOneMember)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<ATE::ITextRange>);
    EXPECT_TRUE(std::has_virtual_destructor_v<ATE::IFont>);
    EXPECT_EQ(16U, sizeof(ATE::ITextRange));
    EXPECT_TRUE(std::is_copy_constructible_v<ATE::ITextRange>);
}

}  // namespace
