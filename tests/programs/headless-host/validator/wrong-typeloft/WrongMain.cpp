#include <dlfcn.h>

#include <cstdlib>

#include "Fault.h"
#include "TypeloftSPEA.h"

namespace wrong {

namespace {

int sDepth = 0;

// The fault is chosen by the number with which the name of the module's file begins.
const Fault* FindOwnFault()
{
    Dl_info info = {};
    if (dladdr(reinterpret_cast<const void*>(&FindOwnFault), &info) == 0) return nullptr;
    const std::string path = info.dli_fname;
    return FindFault(std::atoi(path.substr(path.rfind('/') + 1).c_str()));
}

void ChangeCore(const Fault& fault)
{
    static bool sIsChanged = false;
    PCILoader* const loader = sIsChanged ? nullptr : PCILoader::GetSharedInstance();
    if (loader == nullptr) return;
    sIsChanged = true;
#define KEEP_REAL_FUNCTION(name) core::name = loader->pf##name;
    PLUGIN_CORE_FUNCTIONS(KEEP_REAL_FUNCTION)
#undef KEEP_REAL_FUNCTION
    if (fault.change != nullptr) fault.change(*loader);
}

}  // namespace

AIErr Message::Send() const
{
    // The plug-in changes neither.
    return Main(const_cast<char*>(caller.c_str()), const_cast<char*>(selector.c_str()), data);
}

const Fault* FindFault(int number)
{
    for (const Fault* part : {kMessageFaults, kStartFaults, kDocumentFaults, kBufferFaults,
                              kMenuFaults, kPeriodFaults, kTickFaults}) {
        for (; part->number != 0; ++part) {
            if (part->number == number) return part;
        }
    }
    return nullptr;
}

}  // namespace wrong

extern "C" __attribute__((visibility("default"))) AIErr PluginMain(char* caller, char* selector,
                                                                   void* data)
{
    using namespace wrong;
    static const Fault* const sFault = FindOwnFault();
    // Messages with null names are the sound plug-in's affair.
    if (sFault == nullptr || caller == nullptr || selector == nullptr || data == nullptr) {
        return Main(caller, selector, data);
    }
    Message message = {caller, selector, data, sDepth++};
    if (message.Is("SP Interface", "Startup")) ChangeCore(*sFault);
    const AIErr result = sFault->handle != nullptr ? sFault->handle(message) : message.Send();
    --sDepth;
    return result;
}
