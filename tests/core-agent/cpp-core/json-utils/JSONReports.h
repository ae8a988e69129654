#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "GJSONUtils.h"

struct Report {
    std::string category;
    int level;
    unsigned int code;
    std::string expression;
    std::string file;
    int line;
};

// Receives the failure reports for the length of a test.
class JSONReports : public testing::Test {
protected:
    JSONReports()
    {
        Reports().clear();
        SetCoreErrorReceiver(Receive);
    }
    ~JSONReports() override { SetCoreErrorReceiver(nullptr); }

    static std::vector<Report>& Reports()
    {
        static std::vector<Report> reports;
        return reports;
    }

    // That one report came, and what it says.
    static void ExpectOneReport(int level, unsigned int code, const std::string& expression)
    {
        ASSERT_EQ(Reports().size(), 1U);
        EXPECT_EQ(Reports()[0].category, "Miscellaneous");
        EXPECT_EQ(Reports()[0].level, level);
        EXPECT_EQ(Reports()[0].code, code);
        EXPECT_EQ(Reports()[0].expression, expression);
        EXPECT_GT(Reports()[0].line, 0);
    }

private:
    static void Receive(const char* category, int level, unsigned int code, const char* expression,
                        const char* file, int line)
    {
        Reports().push_back({category, level, code, expression, file, line});
    }
};
