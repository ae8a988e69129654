#pragma once

#include <cstdarg>
#include <map>
#include <memory>
#include <string>

#include "GLogAppender.h"
#include "GMutex.h"
#include "GNoncopyable.h"

// The core library's log: filters lines by a level per identifier and hands them to appenders.
//
// An identifier names the part of the library that logs, as in "FileSystem"; case is ignored. A
// line is "[time]\t[identifier]\t[level]\ttext\n". Without appenders nothing is written.
//
// [any thread] Lines of different threads never mix. All instances share the output stage
// (LogvString), which is guarded per instance, so two instances must not log at the same time. Log
// calls return no error: if a lock, the format or an appender fails, the line or its text is lost.
//
// Lock order: the appenders' lock, then the lock of the current thread's identity. The levels' lock
// is taken and released before both.
class GLogger : private GNoncopyable {
public:
    // -1 unknown, 0 none, 1 error, 2 warning, 3 info, 4 debug.
    enum LoggingLevel : int {};

    // No appenders; the default identifier has level 2.
    GLogger();
    // Deletes the appenders. No thread may use the logger any more.
    virtual ~GLogger();

    // Returns the process's logger, which is made at first use and never deleted. Null if that
    // fails or leads back here (GSingleton.h), so callers test the result.
    static GLogger* GetSharedInstance();

    // Log writes one line at `level`, LogError at level 1, LogWarning at level 2, unless ShouldLog
    // refuses it. `format` and the arguments are those of printf.
    void Log(const std::string& identifier, const LoggingLevel& level, std::string format, ...);
    void LogError(const std::string& identifier, std::string format, ...);
    void LogWarning(const std::string& identifier, std::string format, ...);

    // Log with a va_list. A refused line costs no formatting. The identifier becomes part of the
    // format, so a percent sign in it is read as a conversion.
    void Logv(const std::string& identifier, const LoggingLevel& level, const std::string& format,
              va_list args);

    // Returns true if neither `level` nor the identifier's level is 0 or -1, and `level` is not
    // above the identifier's.
    bool ShouldLog(const std::string& identifier, const LoggingLevel& level);

    // The output stage: formats the text, adds the time and calls each appender, at any level. A
    // call that an appender makes on the same thread is dropped; calls of other threads wait.
    void LogvString(const std::string& format, va_list args);

    // Returns the identifier's level, or the default identifier's if it has none, or -1.
    LoggingLevel GetLoggingLevelForIdentifier(const std::string& identifier);
    // Returns "default"; valid for the logger's life.
    const std::string& GetDefaultLoggingIdentifier() const;

    // Returns "None", "Error", "Warning", "Info" or "Debug"; "" for any other value.
    std::string LevelToString(LoggingLevel level);

    // Removes all levels but the default identifier's, which becomes 2.
    void ResetAllLoggingLevels();
    // Deletes all appenders. Does nothing when an appender calls it while it writes.
    void RemoveAllAppenders();

    // Adds an appender, takes ownership and deletes the previous appender of the same key.
    // Appenders are called in ascending order of their keys; a null one is skipped. When an
    // appender calls this while it writes, nothing is added and the new appender is deleted.
    void AddAppender(const std::string& key, GLogAppender* appender);

    // Sets the identifier's level; 0 or -1 turns it off.
    void SetLoggingLevelForIdentifier(const std::string& identifier, LoggingLevel level);

private:
    GMutex mAppenderMutex;
    std::map<std::string, std::unique_ptr<GLogAppender>> mAppenders;
    GMutex mLevelMutex;
    std::map<std::string, LoggingLevel> mLevels;  // by lower-case identifier
    std::string mDefaultIdentifier;
};
