#include <dlfcn.h>

#include "image/LoadError.h"
#include "libraries/Symbols.h"

namespace macho {

// The library is linked from libc++'s archive so that its own calls of the runtime of exceptions
// remain inside of it. Those of the shared libc++ would end in libstdc++, which the host uses.
void* FindInLibCxx(const std::string& symbol)
{
    static void* const sLibrary = dlopen(MACH_O_CXX_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    if (sLibrary == nullptr) throw LoadError(std::string("libc++ cannot be loaded: ") + dlerror());
    return dlsym(sLibrary, symbol.c_str());
}

}  // namespace macho
