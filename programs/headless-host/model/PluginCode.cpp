#include "model/PluginCode.h"

namespace headless::plugin_code {

namespace {

thread_local bool tIsPlugin = false;

size_t sAllocationCount = 0;
size_t sFailingAllocation = 0;
long sClockOffset = 0;
bool sHidesProcesses = false;

}  // namespace

Scope::Scope(bool isPlugin) : mBefore(tIsPlugin) { tIsPlugin = isPlugin; }

Scope::~Scope() { tIsPlugin = mBefore; }

void FailAllocation(size_t number) { sFailingAllocation = sAllocationCount + number; }

bool CountAllocation() noexcept { return tIsPlugin && ++sAllocationCount == sFailingAllocation; }

size_t GetAllocationCount() { return sAllocationCount; }

void SetClockOffset(long seconds) { sClockOffset = seconds; }

long GetClockOffset() noexcept { return sClockOffset; }

void HideProcesses(bool isHidden) { sHidesProcesses = isHidden; }

bool AreProcessesHidden() noexcept { return sHidesProcesses && tIsPlugin; }

}  // namespace headless::plugin_code
