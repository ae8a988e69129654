#pragma once

#include "Image.h"
#include "Memory.h"

namespace macho {

// Gives each thread its own copy of the image's thread-local variables. Each variable has a
// descriptor in __thread_vars, through which the code calls for the variable's address. A copy is
// made when a thread first asks, and freed when the thread ends. For one image of a process.
//
// Throws LoadError if a variable has an initialiser of its own, which this loader doesn't run.
void SetUpThreadLocals(const Image& image, const Memory& memory);

}  // namespace macho
