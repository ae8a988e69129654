#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

#include "HostInterface.h"

namespace {

TEST(HostError, ReturnsItsCodeAndText)
{
    const ai::Error error(kHostOutOfMemory);
    EXPECT_EQ(kHostOutOfMemory, static_cast<int>(error));
    EXPECT_STREQ("AI Exception", error.what());
    EXPECT_TRUE((std::is_base_of_v<std::exception, ai::Error>));
}

TEST(HostError, CodeZeroIsNeverThrown)
{
    EXPECT_NO_THROW(check_result(0));
    EXPECT_NO_THROW(ai::check_ai_error(0));
    EXPECT_NO_THROW(ATE::Throw_ATE_Exception(0));
}

TEST(HostError, EachCheckThrowsItsOwnType)
{
    EXPECT_THROW(check_result(1), ai::Error);
    EXPECT_THROW(ai::check_ai_error(-1), ai::Error);
    EXPECT_THROW(ATE::Throw_ATE_Exception(7), ATE::Exception);
}

TEST(HostError, TextEngineExceptionHoldsItsCode)
{
    try {
        ATE::Throw_ATE_Exception(-17);
        FAIL() << "nothing was thrown";
    } catch (const ATE::Exception& exception) {
        EXPECT_EQ(-17, exception.error);
    }
}

// So a handler for one doesn't catch the other.
TEST(HostError, HasNoCommonBaseWithTheTextEngineException)
{
    EXPECT_FALSE((std::is_base_of_v<ai::Error, ATE::Exception>));
    EXPECT_FALSE((std::is_base_of_v<ATE::Exception, ai::Error>));
}

}  // namespace
