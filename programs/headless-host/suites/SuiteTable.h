#pragma once

#include <cstddef>

#include "checks/SuiteRow.h"

namespace headless {

constexpr size_t kSuiteRowCount = 102;

// The suites that the host offers: those that the plug-in acquires at its start.
extern const SuiteRow kSuiteRows[kSuiteRowCount];

// The row of the suite, or null if the host has no suite of this name.
const SuiteRow* FindSuiteRow(const char* name);

// The same for a name and a version.
const SuiteRow* FindSuiteRow(const char* name, int version);

// What AcquireSuite hands to the plug-in: the suite's operations, or a table with a null function
// if it has none. No two suites have the same address, which is valid for the life of the process.
//
// row   a row of kSuiteRows
const void* GetSuiteTable(const SuiteRow& row);

}  // namespace headless
