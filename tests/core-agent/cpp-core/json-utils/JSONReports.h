#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GJSONUtils.h"
#include "RecordingLog.h"

// Receives the failure reports for the length of a test.
class JSONReports : public testing::Test {
protected:
    std::vector<LoggedReport>& Reports() { return mLog.Reports(); }

    // That one report came at the level of errors, and what it says.
    void ExpectOneError(unsigned int code, const std::string& expression)
    {
        ASSERT_EQ(Reports().size(), 1U);
        EXPECT_EQ(Reports()[0].category, "Miscellaneous");
        EXPECT_EQ(Reports()[0].level, "Error");
        EXPECT_EQ(Reports()[0].code, code);
        EXPECT_EQ(Reports()[0].name, GetNameForErrorCode(code));
        EXPECT_EQ(Reports()[0].expression, expression);
        EXPECT_GT(Reports()[0].line, 0);
    }

private:
    RecordingLog mLog;
};
