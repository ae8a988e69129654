#include <gtest/gtest.h>

#include "GDateTime.h"
#include "ScriptedSystemCalls.h"

namespace {

class CurrentTime : public testing::Test {
protected:
    CurrentTime() { script = ScriptedSystemCalls(); }
    ~CurrentTime() override { script = ScriptedSystemCalls(); }

    std::string At(time_t seconds, long nanoseconds)
    {
        script.isClockSet = true;
        script.now = {seconds, nanoseconds};
        return GDateTime().GetAsISO8601String(true);
    }

    ScriptedSystemCalls& script = ScriptedSystemCalls::Current();
};

TEST_F(CurrentTime, IsInUTC) { EXPECT_EQ("2001-02-03T04:05:06.000Z", At(981173106, 0)); }

TEST_F(CurrentTime, FractionIsTruncatedToMilliseconds)
{
    EXPECT_EQ("2001-02-03T04:05:06.007Z", At(981173106, 7999999));
    EXPECT_EQ("2001-02-03T04:05:06.999Z", At(981173106, 999999999));
}

TEST_F(CurrentTime, ConvertsSecondsToTheCalendar)
{
    EXPECT_EQ("1970-01-01T00:00:00.000Z", At(0, 0));
    EXPECT_EQ("2000-02-29T00:00:00.000Z", At(951782400, 0));
    EXPECT_EQ("2099-12-31T23:59:59.000Z", At(4102444799, 0));
}

TEST_F(CurrentTime, IsReturnedByTheStaticFunction)
{
    (void)At(981173106, 0);  // sets the clock
    EXPECT_EQ("2001-02-03", GDateTime::OSGetCurrentDateTimeUTC().GetAsISO8601String(false));
}

TEST_F(CurrentTime, IsEmptyWhenTheClockCannotBeRead)
{
    script.isClockBroken = true;
    EXPECT_TRUE(GDateTime().IsEmpty());
    EXPECT_EQ("", GDateTime().GetAsISO8601String(true));
}

}  // namespace
