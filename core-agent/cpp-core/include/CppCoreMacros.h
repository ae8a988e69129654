#pragma once

#include <string>

#include "CoreErrorCodes.h"

// The one line that a failing core function writes beside returning its code. It never changes the
// flow of its caller, and it never throws.
//
// Levels: 1 for an error, 0 for a report that stays silent, 4 for one below the default threshold.

// The line's text; the blanks are part of it.
std::string FormatCoreError(const std::string& name, const char* file, int line,
                            const char* expression, unsigned int code);

// Where a report goes. Null, the value at load, discards it. The receiver may be called from any
// thread and must not throw.
typedef void (*CoreErrorReceiver)(const char* category, int level, unsigned int code,
                                  const char* expression, const char* file, int line);
void SetCoreErrorReceiver(CoreErrorReceiver receiver);
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
