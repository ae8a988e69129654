#include "MessageFixture.h"

using ::testing::IsEmpty;

namespace {

TEST(ThrowAIErr, DoesNothingForZero)
{
    ClearTraces();
    EXPECT_NO_THROW(ThrowAIErr(kHostSuccess));
    EXPECT_THAT(TraceTexts(), IsEmpty());
}

TEST(ThrowAIErr, TracesAndThrowsOtherCodesAsInt)
{
    ClearTraces();
    try {
        ThrowAIErr(kHostBadParameter);
        FAIL() << "nothing was thrown";
    } catch (int code) {
        EXPECT_EQ(0x5041524D, code);  // 'PARM', the value of kHostBadParameter
    }
    EXPECT_TRUE(HasTrace("ERROR:  throwing 1346458189."));
}

TEST(ThrowAIErr, PrintsTheSignOfANegativeCode)
{
    ClearTraces();
    EXPECT_THROW(ThrowAIErr(-1), int);
    EXPECT_TRUE(HasTrace("ERROR:  throwing -1."));
}

}  // namespace
