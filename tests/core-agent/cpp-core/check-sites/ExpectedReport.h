#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RecordingLog.h"

// What a failure report must say.
struct ExpectedReport {
    const char* category;
    const char* expression;
    unsigned int code;
    int level;
    const char* name;
    const char* file;  // a part of it
};

inline void ExpectReports(const std::vector<LoggedReport>& reports,
                          const std::vector<ExpectedReport>& expected)
{
    static const char* const kLevels[] = {"None", "Error", "Warning", "Info", "Debug"};
    ASSERT_EQ(reports.size(), expected.size());
    for (std::size_t index = 0; index < expected.size(); ++index) {
        const LoggedReport& report = reports[index];
        EXPECT_EQ(report.category, expected[index].category);
        EXPECT_EQ(report.expression, expected[index].expression);
        EXPECT_EQ(report.code, expected[index].code);
        EXPECT_EQ(report.level, kLevels[expected[index].level]);
        EXPECT_EQ(report.name, expected[index].name);
        EXPECT_NE(report.file.find(expected[index].file), std::string::npos) << report.file;
        EXPECT_GT(report.line, 0);
    }
}
