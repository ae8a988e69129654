#include "RecordingLog.h"

#include <regex>

#include "GLogger.h"

namespace {

constexpr char kKey[] = "recording";

std::vector<LoggedReport> gReports;

LoggedReport ParseLine(const std::string& line)
{
    static const std::regex kLine(R"(\[([^\]]*)\]\t\[([^\]]*)\]\t\[([^\]]*)\]\t([^]*)\n)");
    static const std::regex kReport(
        R"(Error='(.*)'  File='(.*)'  Line=(\d+)  Expression='(.*)'  Code='(\d+)'  )");
    LoggedReport report;
    std::smatch fields;
    if (!std::regex_match(line, fields, kLine)) {
        report.message = "not of the form of a line: " + line;
        return report;
    }
    report.time = fields[1];
    report.category = fields[2];
    report.level = fields[3];
    report.message = fields[4];
    const std::string message = report.message;
    if (std::regex_match(message, fields, kReport)) {
        report.name = fields[1];
        report.file = fields[2];
        report.line = std::stoi(fields[3]);
        report.expression = fields[4];
        report.code = static_cast<unsigned int>(std::stoul(fields[5]));
    }
    return report;
}

class RecordingAppender : public GLogAppender {
public:
    void Append(std::string line) override { gReports.push_back(ParseLine(line)); }
};

}  // namespace

RecordingLog::RecordingLog()
{
    gReports.clear();
    GLogger* const logger = GLogger::GetSharedInstance();
    logger->ResetAllLoggingLevels();
    logger->SetLoggingLevelForIdentifier("default", GLogger::LoggingLevel(4));
    logger->AddAppender(kKey, new RecordingAppender);
}

RecordingLog::~RecordingLog()
{
    GLogger::GetSharedInstance()->RemoveAllAppenders();
    GLogger::GetSharedInstance()->ResetAllLoggingLevels();
}

std::vector<LoggedReport>& RecordingLog::Reports() { return gReports; }
