#include <cstring>

#include "model/Host.h"
#include "model/PluginCode.h"
#include "suites/SuiteTable.h"
#include "suites/SuiteTables.h"

namespace headless {

namespace {

constexpr AIErr kSuiteNotFoundErr = 0x53214664;  // 'S!Fd'

// exceptionType   what the call throws on purpose; empty for nothing
nlohmann::json DescribeArguments(const char* name, int version, const std::string& exceptionType)
{
    nlohmann::json arguments = {{"name", name == nullptr ? "(null)" : name}, {"version", version}};
    if (!exceptionType.empty()) arguments["injected"] = "throw:" + exceptionType;
    return arguments;
}

// The call as CallFaults has it.
std::string NameCall(const char* operation, const char* suite)
{
    return std::string(operation) + " " + (suite == nullptr ? "(null)" : suite);
}

// Whether the call of the basic suite shall fail, which Host::failures and Host::suiteFaults say.
//
// suite   that the call names; can be null
bool TakesFailure(Host& host, const char* operation, const char* suite, AIErr& status,
                  std::string& exceptionType)
{
    host.BeginCall(operation);
    if (const Fault* const fault = host.suiteFaults.CountCall(NameCall(operation, suite))) {
        status = fault->exceptionType.empty() ? fault->status : kHostBadParameter;
        exceptionType = fault->exceptionType;
        return true;
    }
    const auto failure = host.failures.find(operation);
    if (failure == host.failures.end()) return false;
    status = failure->second;
    host.suiteFaults.NoteFailedCall(NameCall(operation, suite), status);
    host.failures.erase(failure);
    return true;
}

// The suite that the host offers in this version, or null.
const SuiteRow* FindOffered(const Host& host, const char* name, int version)
{
    const auto other = host.suiteVersions.find(name);
    if (other == host.suiteVersions.end()) return FindSuiteRow(name, version);
    return other->second == version ? FindSuiteRow(name) : nullptr;
}

AIErr AcquireSuite(const char* name, int version, void* suite)
{
    Host* const host = Host::GetCurrent();
    if (host == nullptr) return kHostBadParameter;
    const plugin_code::Scope scope(false);
    AIErr result = kHostBadParameter;
    std::string exceptionType;
    try {
        if (TakesFailure(*host, "AcquireSuite", name, result, exceptionType)) {
            // nothing is acquired
        } else if (name == nullptr || suite == nullptr) {
            host->violations.Add(kBadAcquisition,
                                 std::string("AcquireSuite: the ") +
                                     (name == nullptr ? "name" : "place for the suite") +
                                     " is null");
        } else if (const SuiteRow* const row = host->lackingSuites.count(name) != 0
                                                   ? nullptr
                                                   : FindOffered(*host, name, version)) {
            host->suites.Acquire(*row);
            const void* const table = GetSuiteTable(*row);
            std::memcpy(suite, &table, sizeof(table));
            result = kHostSuccess;
        } else {
            result = kSuiteNotFoundErr;
            host->suiteFaults.NoteFailedCall(NameCall("AcquireSuite", name), result);
        }
        if (host->journal.IsOpen()) {
            host->journal.Write("suite", "AcquireSuite",
                                DescribeArguments(name, version, exceptionType), result);
        }
    } catch (...) {
        return kHostOutOfMemory;
    }
    if (!exceptionType.empty()) ThrowFault(exceptionType);
    return result;
}

AIErr ReleaseSuite(const char* name, int version)
{
    Host* const host = Host::GetCurrent();
    if (host == nullptr) return kHostBadParameter;
    const plugin_code::Scope scope(false);
    AIErr result = kHostBadParameter;
    std::string exceptionType;
    try {
        const SuiteRow* const row = name == nullptr ? nullptr : FindOffered(*host, name, version);
        if (TakesFailure(*host, "ReleaseSuite", name, result, exceptionType)) {
            // nothing is released
        } else if (row != nullptr) {
            if (host->suites.Release(*row)) result = kHostSuccess;
        } else {
            host->violations.Add(kSuiteNotHeld, "ReleaseSuite: the host has no suite \"" +
                                                    std::string(name == nullptr ? "(null)" : name) +
                                                    "\" version " + std::to_string(version));
        }
        if (host->journal.IsOpen()) {
            host->journal.Write("suite", "ReleaseSuite",
                                DescribeArguments(name, version, exceptionType), result);
        }
    } catch (...) {
        return kHostOutOfMemory;
    }
    if (!exceptionType.empty()) ThrowFault(exceptionType);
    return result;
}

int IsEqual(const char* a, const char* b) noexcept
{
    if (a == nullptr || b == nullptr) return a == b ? 1 : 0;
    return std::strcmp(a, b) == 0 ? 1 : 0;
}

}  // namespace

SPBasicSuite gBasicSuite = {AcquireSuite, ReleaseSuite, IsEqual};

}  // namespace headless
