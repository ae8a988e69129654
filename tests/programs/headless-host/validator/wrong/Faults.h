#pragma once

#include <vector>

// The faults, one per rule of the validator. The plug-in has those that its file is called after:
// NUMBER-NAME, or the numbers of several ones: NUMBER+NUMBER...
namespace wrong {

struct Fault {
    int number;  // of the rule that it breaks
    const char* name;
    void (*act)();  // called at each moment of the plug-in's `life`
};

// By the hundreds of the rules' numbers.
extern const std::vector<Fault> kFaultsOfLife;       // 100 to 300, 1200 and 1400
extern const std::vector<Fault> kFaultsOfCalls;      // 400 to 600
extern const std::vector<Fault> kFaultsOfMessages;   // 700 and 1000
extern const std::vector<Fault> kFaultsOfDocuments;  // 800 and 900

// Empty for the well-behaved plug-in.
const std::vector<const Fault*>& GetFaults();

bool HasFault(int number);

// Whether the file has the name of faults, or is the well-behaved plug-in.
bool HasKnownName();

[[noreturn]] void Break();  // by an exception that leaves the plug-in
void Crash();

}  // namespace wrong
