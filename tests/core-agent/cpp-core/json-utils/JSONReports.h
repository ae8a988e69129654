#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GJSONUtils.h"
#include "RecordingLog.h"

// Records the failure reports during a test.
class JSONReports : public testing::Test {
protected:
    std::vector<LoggedReport>& Reports() { return mLog.Reports(); }

    // Expects exactly one report, at error level, with this code and expression.
    void ExpectOneError(unsigned int code, const std::string& expression)
    {
        ASSERT_EQ(1U, Reports().size());
        EXPECT_EQ("Miscellaneous", Reports()[0].category);
        EXPECT_EQ("Error", Reports()[0].level);
        EXPECT_EQ(code, Reports()[0].code);
        EXPECT_EQ(GetNameForErrorCode(code), Reports()[0].name);
        EXPECT_EQ(expression, Reports()[0].expression);
        EXPECT_GT(Reports()[0].line, 0);
    }

private:
    RecordingLog mLog;
};
