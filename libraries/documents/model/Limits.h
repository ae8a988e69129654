#pragma once

#include <cstddef>

namespace documents {

// What the reading of one file may cost.
struct Limits {
    size_t inflatedBytes = 512u << 20;  // total output of all decompression
    double seconds = 30;                // wall-clock time for the whole file
    size_t nesting = 64;                // form XObjects drawn inside form XObjects
    double helperSeconds = 20;          // time for Ghostscript, then it is killed; 0: don't use it
    size_t helperBytes = 512u << 20;    // memory for Ghostscript
    bool hasDetails = false;            // also read pageFonts and words of the Document
};

}  // namespace documents
