#include "model/PluginCode.h"

#include <utility>

namespace headless::plugin_code {

namespace {

thread_local bool tIsPlugin = false;

size_t sAllocationCount = 0;
size_t sFailingAllocation = 0;
long sClockOffset = 0;
bool sHidesProcesses = false;

}  // namespace

Scope::Scope(bool isPlugin) : mBefore(std::exchange(tIsPlugin, isPlugin)) {}

Scope::~Scope() { tIsPlugin = mBefore; }

void FailAllocation(size_t number) { sFailingAllocation = sAllocationCount + number; }

bool CountAllocation() noexcept { return tIsPlugin && ++sAllocationCount == sFailingAllocation; }

bool HasAllocationFailed()
{
    return sFailingAllocation != 0 && sAllocationCount >= sFailingAllocation;
}

size_t GetAllocationCount() { return sAllocationCount; }

void SetClockOffset(long seconds) { sClockOffset = seconds; }

long GetClockOffset() noexcept { return sClockOffset; }

void HideProcesses(bool isHidden) { sHidesProcesses = isHidden; }

bool AreProcessesHidden() noexcept { return sHidesProcesses && tIsPlugin; }

}  // namespace headless::plugin_code

// The same as Scope for the simulated PluginCore, a module of its own. Returns what was so before.
extern "C" __attribute__((visibility("default"))) bool HeadlessHostSetPluginCode(
    bool isPlugin) noexcept;
bool HeadlessHostSetPluginCode(bool isPlugin) noexcept
{
    return std::exchange(headless::plugin_code::tIsPlugin, isPlugin);
}
