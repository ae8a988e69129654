#include <cstring>

#include "model/Host.h"
#include "suites/SuiteTable.h"
#include "suites/SuiteTables.h"

namespace headless {

namespace {

constexpr AIErr kSuiteNotFoundErr = 0x53214664;  // 'S!Fd'

nlohmann::json DescribeArguments(const char* name, int version)
{
    return {{"name", name == nullptr ? "(null)" : name}, {"version", version}};
}

AIErr AcquireSuite(const char* name, int version, void* suite) noexcept
{
    Host* const host = Host::GetCurrent();
    if (host == nullptr) return kHostBadParameter;
    try {
        if (host->beforeCall) host->beforeCall("AcquireSuite");
        AIErr result = kHostBadParameter;
        if (name == nullptr || suite == nullptr) {
            host->violations.Add(kBadAcquisition,
                                 std::string("AcquireSuite: the ") +
                                     (name == nullptr ? "name" : "place for the suite") +
                                     " is null");
        } else if (const SuiteRow* const row = FindSuiteRow(name, version)) {
            host->suites.Acquire(*row);
            const void* const table = GetSuiteTable(*row);
            std::memcpy(suite, &table, sizeof(table));
            result = kHostSuccess;
        } else {
            result = kSuiteNotFoundErr;
        }
        if (host->journal.IsOpen()) {
            host->journal.Write("suite", "AcquireSuite", DescribeArguments(name, version), result);
        }
        return result;
    } catch (...) {
        return kHostOutOfMemory;
    }
}

AIErr ReleaseSuite(const char* name, int version) noexcept
{
    Host* const host = Host::GetCurrent();
    if (host == nullptr) return kHostBadParameter;
    try {
        if (host->beforeCall) host->beforeCall("ReleaseSuite");
        AIErr result = kHostBadParameter;
        const SuiteRow* const row = name == nullptr ? nullptr : FindSuiteRow(name, version);
        if (row != nullptr) {
            if (host->suites.Release(*row)) result = kHostSuccess;
        } else {
            host->violations.Add(kSuiteNotHeld, "ReleaseSuite: the host has no suite \"" +
                                                    std::string(name == nullptr ? "(null)" : name) +
                                                    "\" version " + std::to_string(version));
        }
        if (host->journal.IsOpen()) {
            host->journal.Write("suite", "ReleaseSuite", DescribeArguments(name, version), result);
        }
        return result;
    } catch (...) {
        return kHostOutOfMemory;
    }
}

int IsEqual(const char* a, const char* b) noexcept
{
    if (a == nullptr || b == nullptr) return a == b ? 1 : 0;
    return std::strcmp(a, b) == 0 ? 1 : 0;
}

}  // namespace

SPBasicSuite gBasicSuite = {AcquireSuite, ReleaseSuite, IsEqual};

}  // namespace headless
