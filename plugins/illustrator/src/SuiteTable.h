#pragma once

// The suites that the plug-in acquires with the first message and releases at shutdown.

struct SuiteImport {
    const char* name;
    int version;
    void* target;  // address of the global for the suite's pointer; null skips the row
};

constexpr int kSuiteCount = 99;

// In the order of acquiring and of releasing.
extern const SuiteImport imports[kSuiteCount];
