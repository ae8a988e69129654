#include "DocumentHandlers.h"
#include "UsageTest.h"

using ::testing::IsEmpty;

namespace {

constexpr char kFontListChanged[] = "AI Font List Changed Notifier";

class FontListChanged : public UsageTest {};

TEST_F(FontListChanged, NullMessageIsAParameterError)
{
    EXPECT_EQ(HandleFontListChangedNotifier(nullptr), kParameterError);
}

TEST_F(FontListChanged, IsSubscribedAndTracedAndNothingComesOfIt)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    ASSERT_NE(host.NotifierHandle(kFontListChanged), nullptr);
    EXPECT_EQ(SendNotifier(kFontListChanged, document), 0);
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandleFontListChangedNotifier"));
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED NOTIFIER MESSAGE TYPE"));
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls("AI"), IsEmpty());
}

}  // namespace
