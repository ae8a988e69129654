#include "suites/SuiteCall.h"

namespace headless {

SuiteCall::SuiteCall(Host& theHost, const SuiteRow& row, const char* operationName)
    : host(theHost),
      operation(row.name, operationName),
      mRow(row),
      mName(operationName),
      mWanted(theHost.journal.IsOpen())
{
}

AIErr SuiteCall::Refuse(BrokenRule rule, const std::string& reason)
{
    host.violations.Add(rule, operation + ": " + reason);
    return kHostBadParameter;
}

bool SuiteCall::Require(const void* pointer, const char* name)
{
    if (pointer != nullptr) return true;
    (void)Refuse(kNullArgument, std::string("the argument ") + name + " is null");
    return false;
}

bool SuiteCall::IsAllowed()
{
    if (host.suites.IsHeld(mRow)) return true;
    (void)Refuse(kSuiteNotAcquired, "the suite is called without being acquired");
    return false;
}

bool SuiteCall::TakeFailure(AIErr& status, std::string& exceptionType)
{
    if (!host.TakeFailure(mName, mName, status, exceptionType)) return false;
    Out("injected",
        exceptionType.empty() ? nlohmann::json(true) : nlohmann::json("throw:" + exceptionType));
    return true;
}

void SuiteCall::Finish(int result)
{
    if (!mWanted) return;
    mResults["status"] = result;
    if (mArguments.is_null()) mArguments = nlohmann::json::object();
    if (mResults.is_null()) mResults = nlohmann::json::object();
    host.journal.Write("suite", operation.Get(), mArguments, mResults);
}

}  // namespace headless
