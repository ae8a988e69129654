#pragma once

namespace headless {

// A rule that hosts rely on. docs/VALIDATOR.md explains each one.
struct RuleRow {
    int number;  // never changes its meaning
    int level;   // 1 to 10: how thorough a validation is that includes it
    bool isForTypeloftOnly;
    const char* family;
    const char* sentence;  // what the plug-in must do
};

}  // namespace headless
