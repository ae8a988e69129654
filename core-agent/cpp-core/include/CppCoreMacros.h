#pragma once

#include <string>

#include "CoreErrorCodes.h"

// Returns the qualified name of the code's constant, as in "GMutex::kMutexDeadlockErr", or "Unknown
// error code".
//
// The first call builds the table of names, which lives until the process ends. Only failure
// reports need a name, so a process without failures never builds it. [any thread]
std::string GetNameForErrorCode(unsigned int code);

// Writes a failure to the shared logger as one line: error name, file, line, expression, code.
//
// category     the logger's identifier, as in "FileSystem"
// level        1 error; 4 debug, which the default threshold of 2 suppresses; 0 is never written
// code         the code that the failing function returns
// expression   the source text of the failed check; file and line say where it is
// All texts are zero-terminated, must not be null and are only read during the call.
//
// Never throws and returns nothing: a report that cannot be written is lost, and the caller goes
// on. A report that is made while this thread makes another one is dropped. [any thread]
void ReportCoreError(const char* category, int level, unsigned int code, const char* expression,
                     const char* file, int line) noexcept;

#define LogCoreError(category, level, code, expression) \
    ReportCoreError(category, level, code, expression, __FILE__, __LINE__)

// The three checks. Each one reports a failure and returns its code from the enclosing function.
//
// Fails with `code` if the condition is true.
#define CHECK_CORE_CONDITION(category, level, condition, code) \
    do {                                                       \
        if (condition) {                                       \
            LogCoreError(category, level, code, #condition);   \
            return code;                                       \
        }                                                      \
    } while (false)

// Fails with kNullPointer if the pointer is null.
#define CHECK_CORE_POINTER(category, level, pointer)                    \
    do {                                                                \
        if ((pointer) == nullptr) {                                     \
            LogCoreError(category, level, CoreErrorCodes::kNullPointer, \
                         "(" #pointer ") == nullptr");                  \
            return CoreErrorCodes::kNullPointer;                        \
        }                                                               \
    } while (false)

// Fails with the code that `call` evaluates to, unless that is kSuccess. `call` is evaluated once;
// it may also be a variable or a constant.
#define CHECK_CORE_CALL(category, level, call)                    \
    do {                                                          \
        const unsigned int coreErrorCode_ = (call);               \
        if (coreErrorCode_ != CoreErrorCodes::kSuccess) {         \
            LogCoreError(category, level, coreErrorCode_, #call); \
            return coreErrorCode_;                                \
        }                                                         \
    } while (false)
