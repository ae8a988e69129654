#include "system/LeakCheck.h"

// Of the sanitizer's library; null in other builds.
extern "C" __attribute__((weak)) int __lsan_do_recoverable_leak_check();

namespace headless {

bool HasLostMemory()
{
    return __lsan_do_recoverable_leak_check != nullptr && __lsan_do_recoverable_leak_check() != 0;
}

}  // namespace headless
