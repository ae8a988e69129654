#pragma once

#include <cstdarg>
#include <map>
#include <memory>
#include <string>

#include "GLogAppender.h"
#include "GMutex.h"
#include "GNoncopyable.h"

// The core library's own channel: a level per identifier and a table of appenders. Any thread may
// log; lines of two threads never mix. Logging reports no failure to its caller: a lock that can't
// be held, a format that fails or an appender that throws costs the line or the text.
//
// Lock order: the appenders' lock, then the one of the current thread's identity; the levels' lock
// is taken alone, before both.
class GLogger : private GNoncopyable {
public:
    // -1 no level known, 0 none, 1 error, 2 warning, 3 info, 4 debug.
    enum LoggingLevel : int {};

    // The default identifier has level 2.
    GLogger();
    virtual ~GLogger();

    // Made at first use, never deleted. Null only within the making of it (GSingleton.h).
    static GLogger* GetSharedInstance();

    void Log(const std::string& identifier, const LoggingLevel& level, std::string format, ...);
    void LogError(const std::string& identifier, std::string format, ...);
    void LogWarning(const std::string& identifier, std::string format, ...);

    // Nothing is formatted or allocated for a line that the levels refuse. The identifier becomes
    // part of the format: a percent sign in it is read as a conversion.
    void Logv(const std::string& identifier, const LoggingLevel& level, const std::string& format,
              va_list args);
    bool ShouldLog(const std::string& identifier, const LoggingLevel& level);

    // The output stage. A call from within it on the same thread is dropped.
    void LogvString(const std::string& format, va_list args);

    // The identifier's level, else the default identifier's, else -1; case doesn't count.
    LoggingLevel GetLoggingLevelForIdentifier(const std::string& identifier);
    const std::string& GetDefaultLoggingIdentifier() const;

    // "None", "Error", "Warning", "Info", "Debug"; empty for any other value.
    std::string LevelToString(LoggingLevel level);

    void ResetAllLoggingLevels();
    void RemoveAllAppenders();

    // Owns the appender; one that stood under the key is deleted. From within the output stage on
    // the same thread nothing is added, and the appender is deleted. Appenders get their lines in
    // the order of the keys.
    void AddAppender(const std::string& key, GLogAppender* appender);

    void SetLoggingLevelForIdentifier(const std::string& identifier, LoggingLevel level);

private:
    GMutex mAppenderMutex;
    std::map<std::string, std::unique_ptr<GLogAppender>> mAppenders;
    GMutex mLevelMutex;
    std::map<std::string, LoggingLevel> mLevels;  // by lower-case identifier
    std::string mDefaultIdentifier;
};
