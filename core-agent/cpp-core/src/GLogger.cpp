#include "GLogger.h"

#include <sstream>

#include "GBlockingLockStrategy.h"
#include "GScopedLock.h"
#include "GSingleton.h"
#include "GStringUtils.h"

namespace {

constexpr GLogger::LoggingLevel kUnknownLevel = GLogger::LoggingLevel(-1);
constexpr GLogger::LoggingLevel kNoneLevel = GLogger::LoggingLevel(0);
constexpr GLogger::LoggingLevel kErrorLevel = GLogger::LoggingLevel(1);
constexpr GLogger::LoggingLevel kWarningLevel = GLogger::LoggingLevel(2);

bool IsSilent(GLogger::LoggingLevel level) { return level == kNoneLevel || level == kUnknownLevel; }

}  // namespace

GLogger::GLogger() : mDefaultIdentifier("default") { ResetAllLoggingLevels(); }

GLogger::~GLogger() { RemoveAllAppenders(); }

GLogger* GLogger::GetSharedInstance() { return GSingleton<GLogger>::GetSharedInstance(); }

void GLogger::Log(const std::string& identifier, const LoggingLevel& level, std::string format, ...)
{
    va_list args;
    va_start(args, format);
    Logv(identifier, level, format, args);
    va_end(args);
}

void GLogger::LogError(const std::string& identifier, std::string format, ...)
{
    va_list args;
    va_start(args, format);
    Logv(identifier, kErrorLevel, format, args);
    va_end(args);
}

void GLogger::LogWarning(const std::string& identifier, std::string format, ...)
{
    va_list args;
    va_start(args, format);
    Logv(identifier, kWarningLevel, format, args);
    va_end(args);
}

void GLogger::Logv(const std::string& identifier, const LoggingLevel& level,
                   const std::string& format, va_list args)
{
    if (!ShouldLog(identifier, level)) return;
    std::ostringstream line;
    line << "[" << identifier << "]\t[" << LevelToString(level) << "]\t" << format;
    LogvString(line.str(), args);
}

bool GLogger::ShouldLog(const std::string& identifier, const LoggingLevel& level)
{
    if (IsSilent(level)) return false;
    const LoggingLevel effective = GetLoggingLevelForIdentifier(identifier);
    if (IsSilent(effective)) return false;
    // Higher levels are less important lines.
    return effective >= level;
}

GLogger::LoggingLevel GLogger::GetLoggingLevelForIdentifier(const std::string& identifier)
{
    const GScopedLock lock(mLevelMutex, true, new GBlockingLockStrategy);
    if (!lock.IsLocked()) return kUnknownLevel;
    const std::string lowered = GStringUtils::OSToLowerCase(identifier);
    auto found = mLevels.find(lowered);
    if (found == mLevels.end() && lowered != mDefaultIdentifier) {
        found = mLevels.find(mDefaultIdentifier);
    }
    return found == mLevels.end() ? kUnknownLevel : found->second;
}

const std::string& GLogger::GetDefaultLoggingIdentifier() const { return mDefaultIdentifier; }

std::string GLogger::LevelToString(LoggingLevel level)
{
    static const char* const kNames[] = {"None", "Error", "Warning", "Info", "Debug"};
    const int index = level;
    return index < 0 || index > 4 ? "" : kNames[index];
}

void GLogger::ResetAllLoggingLevels()
{
    const GScopedLock lock(mLevelMutex, true, new GBlockingLockStrategy);
    if (!lock.IsLocked()) return;
    mLevels.clear();
    mLevels[mDefaultIdentifier] = kWarningLevel;
}

void GLogger::RemoveAllAppenders()
{
    const GScopedLock lock(mAppenderMutex, true, new GBlockingLockStrategy);
    if (!lock.IsLocked()) return;
    mAppenders.clear();
}

void GLogger::AddAppender(const std::string& key, GLogAppender* appender)
{
    std::unique_ptr<GLogAppender> owned(appender);
    // The lock fails if an appender calls this while it writes: changing the map that LogvString
    // iterates over would be an error.
    const GScopedLock lock(mAppenderMutex, true, new GBlockingLockStrategy);
    if (!lock.IsLocked()) return;
    mAppenders[key] = std::move(owned);
}

void GLogger::SetLoggingLevelForIdentifier(const std::string& identifier, LoggingLevel level)
{
    const GScopedLock lock(mLevelMutex, true, new GBlockingLockStrategy);
    if (!lock.IsLocked()) return;
    mLevels[GStringUtils::OSToLowerCase(identifier)] = level;
}
