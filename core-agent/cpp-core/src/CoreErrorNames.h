#pragma once

// The names of all error codes of the family of programs, as data: no constructor runs for it.
struct CoreErrorName {
    unsigned int ordinal;
    unsigned int classNumber;
    const char* name;  // the constant's full qualified name
};

constexpr int kCoreErrorNameCount = 278;
extern const CoreErrorName kCoreErrorNames[kCoreErrorNameCount];
