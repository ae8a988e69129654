#include <gtest/gtest.h>
#include <sys/time.h>

#include <ctime>

#include "GDateTime.h"
#include "Platform.h"

namespace {

// The real time, whatever the tests have made of time().
std::string NowAsText()
{
    timeval now = {};
    EXPECT_EQ(0, gettimeofday(&now, nullptr));
    std::tm fields = {};
    EXPECT_NE(nullptr, gmtime_r(&now.tv_sec, &fields));
    char date[32] = {};
    EXPECT_NE(0u, std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%S", &fields));
    char milliseconds[32] = {};
    EXPECT_GT(std::snprintf(milliseconds, sizeof milliseconds, ".%03dZ",
                            static_cast<int>(now.tv_usec / 1000)),
              0);
    return std::string(date) + milliseconds;
}

TEST(PresentTimeContract, IsInUTCAndCutToMilliseconds)
{
    const std::string before = NowAsText();
    const std::string now = GDateTime().GetAsISO8601String(true);
    const std::string after = NowAsText();
    // The other clock has seconds in a double, whose last millisecond may be the one before.
    EXPECT_LE(before.substr(0, 21), now.substr(0, 21));
    EXPECT_LE(now, after);
    EXPECT_EQ(24u, now.size());
}

TEST(PresentTimeContract, KeepsNothing)
{
    const long before = Platform::LiveReferences();
    EXPECT_FALSE(GDateTime::OSGetCurrentDateTimeUTC().IsEmpty());
    EXPECT_EQ(before, Platform::LiveReferences());
}

}  // namespace
