#include "Log.h"

#include <cerrno>
#include <cstring>
#include <memory>

#include "GFileLogAppender.h"
#include "GLogger.h"
#include "StatusCodes.h"

namespace vexcor {
namespace {

constexpr const char* kIdentifier = "Vexcor";
constexpr auto kError = static_cast<GLogger::LoggingLevel>(1);
constexpr auto kInfo = static_cast<GLogger::LoggingLevel>(3);
constexpr auto kAll = static_cast<GLogger::LoggingLevel>(4);

}  // namespace

void OpenLog(const std::string& file)
{
    errno = 0;
    auto appender = std::make_unique<GFileLogAppender>(file);
    if (!appender->IsOpen())
        throw plugincore::Failure(plugincore::StatusCodes::kError,
                                  file + ": cannot be opened: " + std::strerror(errno));
    GLogger* const logger = GLogger::GetSharedInstance();
    logger->AddAppender("file", appender.release());
    logger->SetLoggingLevelForIdentifier(logger->GetDefaultLoggingIdentifier(), kAll);
}

void LogProblem(const std::string& line)
{
    GLogger::GetSharedInstance()->Log(kIdentifier, kError, "%s", line.c_str());
}

void LogAction(const std::string& line)
{
    GLogger::GetSharedInstance()->Log(kIdentifier, kInfo, "%s", line.c_str());
}

}  // namespace vexcor
