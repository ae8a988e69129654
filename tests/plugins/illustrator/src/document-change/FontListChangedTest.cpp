#include "DocumentHandlers.h"
#include "UsageFixture.h"

using ::testing::IsEmpty;

namespace {

constexpr char kFontListChanged[] = "AI Font List Changed Notifier";

class FontListChanged : public UsageFixture {};

TEST_F(FontListChanged, RejectsANullMessage)
{
    EXPECT_EQ(kHostBadParameter, HandleFontListChangedNotifier(nullptr));
}

TEST_F(FontListChanged, OnlyTracesTheSubscribedNotifier)
{
    _t_AIDocument* const document = AddDocument("/a.ai", {"A"});
    ASSERT_NE(nullptr, host.NotifierHandle(kFontListChanged));
    EXPECT_EQ(0, SendNotifier(kFontListChanged, document));
    EXPECT_TRUE(HasTraceBeginningWith("Entering HandleFontListChangedNotifier"));
    EXPECT_FALSE(HasTraceBeginningWith("UNHANDLED NOTIFIER MESSAGE TYPE"));
    EXPECT_THAT(core->calls, IsEmpty());
    EXPECT_THAT(host.Calls("AI"), IsEmpty());
}

}  // namespace
