#include <gtest/gtest.h>
#include <sys/time.h>

#include <ctime>

#include "GDateTime.h"
#include "Platform.h"

namespace {

// Returns the real time; other tests of the program replace time().
std::string NowAsText()
{
    timeval now = {};
    EXPECT_EQ(0, gettimeofday(&now, nullptr));
    std::tm fields = {};
    EXPECT_NE(nullptr, gmtime_r(&now.tv_sec, &fields));
    char date[32] = {};
    EXPECT_NE(0U, std::strftime(date, sizeof date, "%Y-%m-%dT%H:%M:%S", &fields));
    char milliseconds[32] = {};
    EXPECT_GT(std::snprintf(milliseconds, sizeof milliseconds, ".%03dZ",
                            static_cast<int>(now.tv_usec / 1000)),
              0);
    return std::string(date) + milliseconds;
}

TEST(PresentTimeContract, IsInUTCAndTruncatedToMilliseconds)
{
    const std::string before = NowAsText();
    const std::string now = GDateTime().GetAsISO8601String(true);
    const std::string after = NowAsText();
    // The product may keep seconds in a double, which can lose a millisecond.
    EXPECT_LE(before.substr(0, 21), now.substr(0, 21));
    EXPECT_LE(now, after);
    EXPECT_EQ(24U, now.size());
}

TEST(PresentTimeContract, LeaksNoReference)
{
    if (!Platform::kCountsReferences) GTEST_SKIP() << "references are not counted";
    const long before = Platform::LiveReferences();
    EXPECT_FALSE(GDateTime::OSGetCurrentDateTimeUTC().IsEmpty());
    EXPECT_EQ(before, Platform::LiveReferences());
}

}  // namespace
