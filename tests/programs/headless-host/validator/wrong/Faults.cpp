#include "Faults.h"

#include <dlfcn.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string>

namespace wrong {

namespace {

std::string GetModuleName()
{
    Dl_info info;
    if (dladdr(reinterpret_cast<void*>(&GetModuleName), &info) == 0) return {};
    const std::string path = info.dli_fname;
    return path.substr(path.rfind('/') + 1);
}

// Whether `name` is that of the fault: its number alone, or with its name.
bool IsCalled(const Fault& fault, const std::string& name)
{
    const std::string number = std::to_string(fault.number);
    return name == number || name == number + "-" + fault.name;
}

std::vector<const Fault*> FindFaults()
{
    std::vector<const Fault*> found;
    std::istringstream names(GetModuleName());
    for (std::string name; std::getline(names, name, '+');) {
        for (const std::vector<Fault>* const faults :
             {&kFaultsOfLife, &kFaultsOfCalls, &kFaultsOfMessages, &kFaultsOfDocuments}) {
            for (const Fault& fault : *faults) {
                if (IsCalled(fault, name)) found.push_back(&fault);
            }
        }
    }
    return found;
}

int* volatile sNowhere = nullptr;

}  // namespace

const std::vector<const Fault*>& GetFaults()
{
    static const std::vector<const Fault*> kFaults = FindFaults();
    return kFaults;
}

bool HasFault(int number)
{
    const std::vector<const Fault*>& faults = GetFaults();
    return std::any_of(faults.begin(), faults.end(),
                       [number](const Fault* fault) { return fault->number == number; });
}

bool HasKnownName() { return !GetFaults().empty() || GetModuleName() == "well-behaved"; }

void Break() { throw std::logic_error("the fault of this plug-in"); }

void Crash() { *sNowhere = 1; }

}  // namespace wrong
