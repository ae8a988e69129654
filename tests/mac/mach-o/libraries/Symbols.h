#pragma once

#include <string>

namespace macho {

// What the names that the bundle imports are bound to, one function per library of macOS.
// `symbol` has no leading _. Each returns null for a name that this loader doesn't have.

// libSystem: the C library of this machine, except where the two differ.
void* FindInLibSystem(const std::string& symbol);

// libc++: that of this machine, with its own runtime of exceptions. Throws LoadError if it cannot
// be loaded.
void* FindInLibCxx(const std::string& symbol);

// libobjc: the Objective-C runtime of gcc.
void* FindInLibObjC(const std::string& symbol);

// CoreFoundation and CoreServices: the stand-in that the tests over GNUstep use too.
void* FindInCoreFoundation(const std::string& symbol);

// Foundation: GNUstep. AppKit: the classes in cocoa/.
void* FindInCocoa(const std::string& symbol);

// Returns the address of `symbol` of the library with this install name, as in
// "/usr/lib/libc++.1.dylib". Throws LoadError, naming both, if the library or the name is unknown.
void* FindSymbol(const std::string& library, const std::string& symbol);

}  // namespace macho
