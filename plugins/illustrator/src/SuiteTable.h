#pragma once

// The suites that are acquired with the first message and released at shutdown.

struct SuiteImport {
    const char* name;
    int version;
    void* target;  // the global that receives the suite pointer; null skips the row
};

constexpr int kSuiteCount = 99;

// In the order of acquiring and of releasing.
extern const SuiteImport imports[kSuiteCount];
