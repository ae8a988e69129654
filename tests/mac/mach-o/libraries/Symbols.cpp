#include "libraries/Symbols.h"

#include "image/LoadError.h"

namespace macho {

namespace {

struct Library {
    const char* name;  // the last part of the install name
    void* (*find)(const std::string& symbol);
};

constexpr Library kLibraries[] = {
    {"libSystem.B.dylib", FindInLibSystem},
    {"libc++.1.dylib", FindInLibCxx},
    {"libobjc.A.dylib", FindInLibObjC},
    {"CoreFoundation", FindInCoreFoundation},
    {"CoreServices", FindInCoreFoundation},
    {"Foundation", FindInCocoa},
    {"AppKit", FindInCocoa},
};

}  // namespace

void* FindSymbol(const std::string& library, const std::string& symbol)
{
    const std::string name = library.substr(library.rfind('/') + 1);
    for (const Library& row : kLibraries) {
        if (name != row.name) continue;
        void* const address =
            symbol[0] == '_' ? row.find(symbol.substr(1)) : row.find(symbol);  // dyld_stub_binder
        if (address != nullptr) return address;
        throw LoadError(name + ": bind " + symbol + " is unknown");
    }
    throw LoadError("library " + library + " of bind " + symbol + " is unknown");
}

}  // namespace macho
