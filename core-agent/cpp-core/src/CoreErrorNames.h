#pragma once

// The names of all error codes of the family of programs, in ascending order of ordinal, then class
// number. Constant data: nothing runs at program start.
struct CoreErrorName {
    unsigned int ordinal;
    unsigned int classNumber;
    const char* name;  // qualified name of the constant
};

constexpr int kCoreErrorNameCount = 278;
extern const CoreErrorName kCoreErrorNames[kCoreErrorNameCount];
