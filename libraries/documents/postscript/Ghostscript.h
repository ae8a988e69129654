#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace documents {

struct GhostscriptResult {
    std::string pdf;
    std::string error;  // why there is none, in a few words; empty if there is
};

// Has Ghostscript ("gs" of the PATH) draw PostScript as a PDF, in a process of its own that may
// neither read nor write other files. After `seconds`, and beyond `memoryBytes` of memory, it is
// ended with all that it started; it ends with this process too. No file is left behind.
GhostscriptResult DrawWithGhostscript(std::string_view postScript, double seconds,
                                      size_t memoryBytes, size_t mostPdfBytes);

}  // namespace documents
