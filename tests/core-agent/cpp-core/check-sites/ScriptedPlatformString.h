#pragma once

#include <string>
#include <vector>

// Replaces the platform's string objects in a program that links it. The fields decide what each
// operation does; `calls` records the operations.
struct ScriptedPlatformString {
    enum class Step { kWorks, kReturnsNull, kThrows };

    Step utf8 = Step::kWorks;
    Step macRoman = Step::kWorks;
    Step expansion = Step::kWorks;
    std::string description = "no such form";  // of the exception
    std::string expanded = "/expanded";
    std::vector<std::string> calls;

    static ScriptedPlatformString& Current();
};
