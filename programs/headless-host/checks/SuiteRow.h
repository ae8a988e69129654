#pragma once

namespace headless {

// One suite that the host offers. The rows are constants of the table in suites/SuiteTable.cpp, so
// the address of a row identifies its suite.
struct SuiteRow {
    const char* name;
    int version;             // the only one that can be acquired
    const void* operations;  // the function table; null if no plug-in calls this suite
};

}  // namespace headless
