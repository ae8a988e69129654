#pragma once

#include <string>
#include <vector>

#include "DrawSample.h"

enum class Packing { kZlib, kZstandard };

// Returns the native part of a page, packed: a story with a frame of its own for each value of
// SampleLine::story, the placed files, and the list of all fonts in the header. Equal arguments
// give equal bytes. Throws std::runtime_error if a font can't be read.
std::string MakeNativePart(const SamplePage& page, const std::vector<std::string>& placedFiles,
                           Packing packing);
