#include "HostSuites.h"

#include "DebugUtils.h"
#include "PluginGlobals.h"
#include "SuiteTable.h"

uint32_t sAcquireCount = 0;

void AcquireSuite(char const* name, int version, void* slot)
{
    ThrowAIErr(sSPBasic->AcquireSuite(name, version, slot));
}

void ReleaseSuite(char const* name, int version, void* slot)
{
    auto* const suite = static_cast<void**>(slot);
    if (*suite == nullptr) return;
    // If the host refuses, there is nothing else to do: the suite isn't used any more.
    (void)sSPBasic->ReleaseSuite(name, version);
    *suite = nullptr;
}

AIErr AcquireSuites(SPBasicSuite* basic)
{
    if (sAcquireCount != 0) return kHostSuccess;

    for (const SuiteImport& suite : imports) {
        if (suite.target == nullptr) continue;
        const AIErr result = basic->AcquireSuite(suite.name, suite.version, suite.target);
        if (result == kHostSuccess) continue;
        OutputIndentedAndFormattedString(0, "Error 0x%08x acquiring suite '%s', version %d",
                                         static_cast<unsigned int>(result), suite.name,
                                         suite.version);
        return result;
    }
    ++sAcquireCount;
    return kHostSuccess;
}

AIErr ReleaseSuites()
{
    if (sAcquireCount == 1) {
        for (const SuiteImport& suite : imports) {
            auto* const target = static_cast<void**>(suite.target);
            if (target == nullptr || *target == nullptr) continue;
            const AIErr result = sSPBasic->ReleaseSuite(suite.name, suite.version);
            if (result != kHostSuccess) return result;
            *target = nullptr;
        }
    }
    // If it was 0 it wraps around, and AcquireSuites then never acquires anything again.
    --sAcquireCount;
    return kHostSuccess;
}
