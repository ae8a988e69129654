#pragma once

#include <cstddef>

namespace headless {

// One suite that the host answers.
struct SuiteRow {
    const char* name;
    int version;         // no other is answered
    const void* table;   // the suite's function table, the same for the life of the process
    bool hasOperations;  // false: the table is empty, nobody calls it
};

constexpr size_t kSuiteRowCount = 102;

extern const SuiteRow kSuiteRows[kSuiteRowCount];

// Null if the host has no suite of that name.
const SuiteRow* FindSuiteRow(const char* name);

// Null if it has none of that name and version.
const SuiteRow* FindSuiteRow(const char* name, int version);

}  // namespace headless
