#pragma once

#include <stdexcept>
#include <string>

// What PluginCore's functions answer, and how a failure travels inside until it becomes an answer.
namespace plugincore {

struct StatusCodes {
    static constexpr unsigned int kSuccess = 0;
    static constexpr unsigned int kError = 0x01000000;
    static constexpr unsigned int kInvalidParam = 0x04000000;
    static constexpr unsigned int kNullPointer = 0x05000000;
    static constexpr unsigned int kNotFound = 0x07000000;
    static constexpr unsigned int kIndexOutOfRange = 0x0C000000;  // a buffer is too small
    static constexpr unsigned int kDatabaseError = 0x0D000000;
    static constexpr unsigned int kVersionMismatch = 0x0E000000;
    static constexpr unsigned int kNotInitialized = 0x11000000;
    static constexpr unsigned int kUnknownError = 0x15000000;
};

// A failure with the status to answer and one line that names the thing at fault and the reason.
class Failure : public std::runtime_error {
public:
    Failure(unsigned int status, const std::string& line)
        : std::runtime_error(line), mStatus(status)
    {
    }
    unsigned int GetStatus() const { return mStatus; }

private:
    unsigned int mStatus;
};

// Writes "PluginCore: " and the line to standard error, in one piece, or hands the line to the
// sink.
void Report(const std::string& line);

// For a program of its own: where lines go from now on.
using ReportSink = void (*)(const std::string& line);
void SetReportSink(ReportSink sink);

}  // namespace plugincore
