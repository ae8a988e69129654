#include "console/Log.h"

#include <cerrno>
#include <cstring>
#include <memory>

#include "GFileLogAppender.h"
#include "GLogger.h"

namespace console {

namespace {

const char* sName = "";

constexpr auto kError = static_cast<GLogger::LoggingLevel>(1);
constexpr auto kInfo = static_cast<GLogger::LoggingLevel>(3);
constexpr auto kAll = static_cast<GLogger::LoggingLevel>(4);

}  // namespace

void SetLogName(const char* name) { sName = name; }

bool OpenLog(const std::string& file, std::string& error)
{
    errno = 0;
    auto appender = std::make_unique<GFileLogAppender>(file);
    if (!appender->IsOpen()) {
        error = file + ": cannot be opened: " + std::strerror(errno);
        return false;
    }
    GLogger* const logger = GLogger::GetSharedInstance();
    logger->AddAppender("file", appender.release());
    logger->SetLoggingLevelForIdentifier(logger->GetDefaultLoggingIdentifier(), kAll);
    return true;
}

void LogError(const std::string& line)
{
    GLogger::GetSharedInstance()->Log(sName, kError, "%s", line.c_str());
}

void LogAction(const std::string& line)
{
    GLogger::GetSharedInstance()->Log(sName, kInfo, "%s", line.c_str());
}

}  // namespace console
