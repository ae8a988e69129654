#include "CppCoreMacros.h"

#include <atomic>
#include <map>
#include <memory>

#include "CoreErrorNames.h"
#include "GBlockingLockStrategy.h"
#include "GLogger.h"
#include "GMutex.h"
#include "GScopedLock.h"

namespace {

typedef std::map<unsigned int, std::string> CodeTable;

constexpr char kReportFormat[] = "Error='%s'  File='%s'  Line=%d  Expression='%s'  Code='%u'  ";

CodeTable* MakeCodeTable()
{
    auto table = std::make_unique<CodeTable>();
    for (const CoreErrorName& row : kCoreErrorNames) {
        table->emplace_hint(table->end(), MakeErrorCode(row.ordinal, row.classNumber), row.name);
    }
    return table.release();
}

}  // namespace

std::string GetNameForErrorCode(unsigned int code)
{
    // Never freed: code that runs while the process ends may still report failures.
    static std::atomic<CodeTable*> gMap{nullptr};
    static GMutex mutex;
    // If the lock below fails, its report asks for a name too and must not lock again.
    static thread_local bool sIsFilling = false;
    if (gMap.load(std::memory_order_acquire) == nullptr && !sIsFilling) {
        struct FillingScope {
            FillingScope() { sIsFilling = true; }
            ~FillingScope() { sIsFilling = false; }
        } filling;
        const GScopedLock lock(mutex, true, new GBlockingLockStrategy);
        if (lock.IsLocked() && gMap.load(std::memory_order_relaxed) == nullptr) {
            gMap.store(MakeCodeTable(), std::memory_order_release);
        }
    }
    const CodeTable* const table = gMap.load(std::memory_order_acquire);
    if (table != nullptr) {
        const auto found = table->find(code);
        if (found != table->end()) return found->second;
    }
    return "Unknown error code";
}

void ReportCoreError(const char* category, int level, unsigned int code, const char* expression,
                     const char* file, int line) noexcept
{
    // A lock that fails during the report is reported too: without this flag, endlessly.
    static thread_local bool sIsReporting = false;
    if (sIsReporting) return;
    struct ReportingScope {
        ReportingScope() { sIsReporting = true; }
        ~ReportingScope() { sIsReporting = false; }
    } reporting;
    try {
        GLogger* const logger = GLogger::GetSharedInstance();
        const std::string name = GetNameForErrorCode(code);
        if (logger == nullptr) return;
        logger->Log(category, GLogger::LoggingLevel(level), kReportFormat, name.c_str(), file, line,
                    expression, code);
    } catch (...) {
        // The report is lost; the caller still returns the code.
    }
}
