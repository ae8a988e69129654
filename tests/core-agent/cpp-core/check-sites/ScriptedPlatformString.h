#pragma once

#include <string>
#include <vector>

// Stands in for the platform's string objects: a program that links this decides what each of their
// operations does.
struct ScriptedPlatformString {
    enum class Step { kWorks, kGivesNothing, kThrows };

    Step utf8 = Step::kWorks;
    Step macRoman = Step::kWorks;
    Step expansion = Step::kWorks;
    std::string description = "no such form";  // of what is thrown
    std::string expanded = "/expanded";
    std::vector<std::string> calls;

    static ScriptedPlatformString& Current();
};
