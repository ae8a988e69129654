#include "MessageFixture.h"

using ::testing::IsEmpty;

namespace {

TEST(ThrowAIErr, ZeroDoesNothingAndTracesNothing)
{
    ClearTraces();
    EXPECT_NO_THROW(ThrowAIErr(0));
    EXPECT_THAT(TraceTexts(), IsEmpty());
}

TEST(ThrowAIErr, OtherCodesAreTracedAndThrownAsInt)
{
    ClearTraces();
    try {
        ThrowAIErr(0x5041524D);
        FAIL() << "nothing was thrown";
    } catch (int code) {
        EXPECT_EQ(code, 0x5041524D);
    }
    EXPECT_TRUE(HasTrace("ERROR:  throwing 1346458189."));
}

TEST(ThrowAIErr, NegativeCodesKeepTheirSign)
{
    ClearTraces();
    EXPECT_THROW(ThrowAIErr(-1), int);
    EXPECT_TRUE(HasTrace("ERROR:  throwing -1."));
}

}  // namespace
