#include "console/Log.h"

#include <cerrno>
#include <cstring>
#include <memory>

#include "GFileLogAppender.h"
#include "GLogger.h"
#include "console/Console.h"

namespace console {

namespace {

constexpr auto kError = static_cast<GLogger::LoggingLevel>(1);
constexpr auto kInfo = static_cast<GLogger::LoggingLevel>(3);
constexpr auto kAll = static_cast<GLogger::LoggingLevel>(4);

}  // namespace

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

void LogProblem(const std::string& line)
{
    GLogger::GetSharedInstance()->Log(GetProgramName(), kError, "%s", line.c_str());
}

void LogAction(const std::string& line)
{
    GLogger::GetSharedInstance()->Log(GetProgramName(), kInfo, "%s", line.c_str());
}

}  // namespace console
