#pragma once

#include <string>

#include "CoreErrorCodes.h"

// The full name of the code's constant, or "Unknown error code". Any thread. The table of names is
// built at the first call, which only a failure makes.
std::string GetNameForErrorCode(unsigned int code);

// The one line that a failing core function writes beside returning its code; it goes to the shared
// logger under the category. It never changes the flow of its caller, and it never throws.
//
// Levels: 1 for an error, 0 for a report that stays silent, 4 for one below the default threshold.
void ReportCoreError(const char* category, int level, unsigned int code, const char* expression,
                     const char* file, int line) noexcept;

#define LogCoreError(category, level, code, expression) \
    ReportCoreError(category, level, code, expression, __FILE__, __LINE__)

// The three checks: each reports and makes the enclosing function return the code.
//
// A condition that means failure.
#define CHECK_CORE_CONDITION(category, level, condition, code) \
    do {                                                       \
        if (condition) {                                       \
            LogCoreError(category, level, code, #condition);   \
            return code;                                       \
        }                                                      \
    } while (false)

// A pointer that must not be null.
#define CHECK_CORE_POINTER(category, level, pointer)                    \
    do {                                                                \
        if ((pointer) == nullptr) {                                     \
            LogCoreError(category, level, CoreErrorCodes::kNullPointer, \
                         "(" #pointer ") == nullptr");                  \
            return CoreErrorCodes::kNullPointer;                        \
        }                                                               \
    } while (false)

// A call, variable or literal that gives a code. Only a non-zero one is reported.
#define CHECK_CORE_CALL(category, level, call)                    \
    do {                                                          \
        const unsigned int coreErrorCode_ = (call);               \
        if (coreErrorCode_ != CoreErrorCodes::kSuccess) {         \
            LogCoreError(category, level, coreErrorCode_, #call); \
            return coreErrorCode_;                                \
        }                                                         \
    } while (false)
