#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RecordingLog.h"

// The fields of a failure report that a test expects.
struct ExpectedReport {
    const char* category;
    const char* expression;
    unsigned int code;
    int level;
    const char* name;
    const char* file;  // a part of the path
};

// Expects exactly these reports, in this order.
inline void ExpectReports(const std::vector<LoggedReport>& reports,
                          const std::vector<ExpectedReport>& expected)
{
    static const char* const kLevels[] = {"None", "Error", "Warning", "Info", "Debug"};
    ASSERT_EQ(expected.size(), reports.size());
    for (std::size_t index = 0; index < expected.size(); ++index) {
        const LoggedReport& report = reports[index];
        EXPECT_EQ(expected[index].category, report.category);
        EXPECT_EQ(expected[index].expression, report.expression);
        EXPECT_EQ(expected[index].code, report.code);
        EXPECT_EQ(kLevels[expected[index].level], report.level);
        EXPECT_EQ(expected[index].name, report.name);
        EXPECT_NE(std::string::npos, report.file.find(expected[index].file)) << report.file;
        EXPECT_GT(report.line, 0);
    }
}
