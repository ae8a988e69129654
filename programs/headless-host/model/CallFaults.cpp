#include "model/CallFaults.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <stdexcept>

#include "AIError.h"
#include "ATEWrappers.h"

namespace headless {

namespace {

constexpr AIErr kThrownStatus = kHostBadParameter;
constexpr char kThrow[] = "throw:";

struct ForeignException {};

}  // namespace

bool ReadFault(const std::string& text, Fault& fault)
{
    if (text.rfind(kThrow, 0) == 0) {
        fault = {0, text.substr(sizeof kThrow - 1)};
        return std::find(std::begin(kFaultExceptions), std::end(kFaultExceptions),
                         fault.exceptionType) != std::end(kFaultExceptions);
    }
    fault = {};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), fault.status);
    return result.ec == std::errc() && result.ptr == text.data() + text.size() && fault.status != 0;
}

void ThrowFault(const std::string& exceptionType)
{
    if (exceptionType == "ai::Error") throw ai::Error(kThrownStatus);
    if (exceptionType == "ATE::Exception") throw ATE::Exception(kThrownStatus);
    if (exceptionType == "int") throw static_cast<int>(kThrownStatus);
    if (exceptionType == "std::exception") throw std::runtime_error("the host's call failed");
    throw ForeignException();
}

void CallFaults::FailCall(size_t number, Fault fault)
{
    mFailingCall = mCount + number;
    mFault = std::move(fault);
}

void CallFaults::NoteFailedCall(const std::string& name, AIErr status)
{
    Note(name + " " + std::to_string(status));
}

void CallFaults::Note(std::string failedCall)
{
    if (mListener) mListener(failedCall);
    mFailedCalls.push_back(std::move(failedCall));
}

const Fault* CallFaults::CountCall(const char* name)
{
    if (++mCount != mFailingCall) return nullptr;
    if (mFault.exceptionType.empty()) {
        NoteFailedCall(name, mFault.status);
    } else {
        Note(std::string(name) + " " + kThrow + mFault.exceptionType);
    }
    return &mFault;
}

}  // namespace headless
