#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "HostTypes.h"

namespace headless {

// What goes wrong on purpose in a call that the plug-in makes: it does nothing, and returns a
// status or throws.
struct Fault {
    AIErr status = 0;
    std::string exceptionType;  // of kFaultExceptions; empty: it returns `status`
};

// What a call can throw: the exception types of the host's boundary, and two that it doesn't have.
constexpr const char* kFaultExceptions[] = {"ai::Error", "ATE::Exception", "int", "std::exception",
                                            "foreign"};

// Reads a status, except 0, or "throw:" and an exception type. Returns false for anything else.
bool ReadFault(const std::string& text, Fault& fault);

// Throws an exception of a type of kFaultExceptions. Of any other it throws a foreign one.
[[noreturn]] void ThrowFault(const std::string& exceptionType);

// Counts calls and makes one of them fail. Main thread only.
class CallFaults {
public:
    // The call `number` from now, counted from 1, fails with this fault. Replaces an earlier order.
    void FailCall(size_t number, Fault fault);

    // Counts a call. Returns its fault; null if it doesn't fail. Valid until the next order.
    //
    // name   of the operation; for one of the basic suite with the suite, as "ReleaseSuite AI Menu
    //        Suite"
    const Fault* CountCall(const char* name);

    // Called with each failed call, as GetFailedCalls has it, before the call fails.
    using Listener = std::function<void(const std::string& failedCall)>;
    void SetListener(Listener listener) { mListener = std::move(listener); }

    // Notes a call that failed for another reason than an order to FailCall.
    void NoteFailedCall(const std::string& name, AIErr status);

    // The calls that failed, as "GetMenus throw:int".
    const std::vector<std::string>& GetFailedCalls() const { return mFailedCalls; }

    size_t GetCount() const { return mCount; }

    // Whether a fault was ordered that no call has had so far.
    bool IsPending() const { return mFailingCall > mCount; }

private:
    void Note(std::string failedCall);

    Fault mFault;
    Listener mListener;
    std::vector<std::string> mFailedCalls;
    size_t mCount = 0;
    size_t mFailingCall = 0;
};

}  // namespace headless
