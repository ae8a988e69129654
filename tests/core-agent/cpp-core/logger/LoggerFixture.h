#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "GLogger.h"

inline constexpr GLogger::LoggingLevel kUnknown = GLogger::LoggingLevel(-1);
inline constexpr GLogger::LoggingLevel kNone = GLogger::LoggingLevel(0);
inline constexpr GLogger::LoggingLevel kError = GLogger::LoggingLevel(1);
inline constexpr GLogger::LoggingLevel kWarning = GLogger::LoggingLevel(2);
inline constexpr GLogger::LoggingLevel kInfo = GLogger::LoggingLevel(3);
inline constexpr GLogger::LoggingLevel kDebug = GLogger::LoggingLevel(4);

// What happens to an appender. Must outlive it.
struct AppenderRecord {
    std::vector<std::string> lines;
    std::vector<std::string>* order = nullptr;  // receives the appender's name at each line
    bool isDeleted = false;
    std::function<void()> onAppend;
};

class ScriptedAppender : public GLogAppender {
public:
    explicit ScriptedAppender(AppenderRecord& record, const std::string& name = "")
        : mRecord(record), mName(name)
    {
    }
    ~ScriptedAppender() override { mRecord.isDeleted = true; }
    void Append(std::string line) override
    {
        mRecord.lines.push_back(line);
        if (mRecord.order != nullptr) mRecord.order->push_back(mName);
        if (mRecord.onAppend) mRecord.onAppend();
    }

private:
    AppenderRecord& mRecord;
    std::string mName;
};

// A logger with one appender, for one test.
class LoggerFixture : public testing::Test {
protected:
    LoggerFixture() { logger.AddAppender("recording", new ScriptedAppender(record)); }

    // The lines without their time, which is in brackets before the first tab.
    std::vector<std::string> LinesWithoutTime() const
    {
        std::vector<std::string> lines;
        for (const std::string& line : record.lines) lines.push_back(line.substr(line.find('\t')));
        return lines;
    }

    AppenderRecord record;  // declared first, because it must outlive the logger
    GLogger logger;
};
