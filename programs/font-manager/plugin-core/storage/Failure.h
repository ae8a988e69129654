#pragma once

#include <stdexcept>
#include <string>

// The statuses of PluginCore's functions and the exception that carries one up to them.
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

// An error with the status to return and a message of one line, "THING: what is wrong".
class Failure : public std::runtime_error {
public:
    Failure(unsigned int status, const std::string& message)
        : std::runtime_error(message), mStatus(status)
    {
    }
    unsigned int GetStatus() const { return mStatus; }

private:
    unsigned int mStatus;
};

}  // namespace plugincore
