#pragma once

#include "image/Image.h"
#include "image/Memory.h"

namespace macho {

// Registers the image's selectors and adds the methods of its categories to their classes, as the
// Objective-C runtime of macOS does before the image's initialisers run. The binds must be done.
// Throws LoadError if the image has a part of Objective-C that this loader doesn't register, such
// as a class of its own.
void RegisterObjectiveC(const Image& image, const Memory& memory);

}  // namespace macho
