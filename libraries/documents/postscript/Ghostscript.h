#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace documents {

struct GhostscriptResult {
    std::string pdf;
    std::string error;    // why there is no PDF, in a few words; empty on success
    bool isLate = false;  // the error is that it took too long
};

// The error of a drawing that took longer than `seconds`.
std::string DescribeLateDrawing(double seconds);

// Converts PostScript to a PDF with Ghostscript ("gs" in the PATH), in a separate process that
// can't read or write other files. Waits for it.
//
// seconds       time limit; then the process and all its children are killed
// memoryBytes   limit of its memory (RLIMIT_DATA)
// mostPdfBytes  limit of the result
//
// The process is killed when the thread that called this function ends. Creates no files.
GhostscriptResult DrawWithGhostscript(std::string_view postScript, double seconds,
                                      size_t memoryBytes, size_t mostPdfBytes);

}  // namespace documents
