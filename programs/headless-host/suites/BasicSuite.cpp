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
        host->BeginCall("AcquireSuite");
        if (host->TakeFailure("AcquireSuite", NameCall("AcquireSuite", name).c_str(), result,
                              exceptionType)) {
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
        host->BeginCall("ReleaseSuite");
        const SuiteRow* const row = name == nullptr ? nullptr : FindOffered(*host, name, version);
        if (host->TakeFailure("ReleaseSuite", NameCall("ReleaseSuite", name).c_str(), result,
                              exceptionType)) {
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
