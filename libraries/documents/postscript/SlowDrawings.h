#pragma once

#include <string>
#include <string_view>

namespace documents {

// A memory of what Ghostscript didn't draw within its time limit, for all modules of a process that
// read documents: none of them waits for the same drawing again. Both functions are null without a
// memory, which is the default; then each reading starts Ghostscript.
struct SlowDrawings {
    // The longest time in seconds that Ghostscript was given for a drawing in vain; 0 if it wasn't.
    // `drawing` is a name from NameDrawing.
    double (*getSeconds)(const char* drawing) = nullptr;

    void (*addSeconds)(const char* drawing, double seconds) = nullptr;
};

// Sets the memory of this module. Not thread-safe: call it before documents are read.
void UseSlowDrawings(const SlowDrawings& memory);
const SlowDrawings& GetSlowDrawings();

// A name for a drawing, the same for the same bytes in whichever file they are.
std::string NameDrawing(std::string_view postScript);

}  // namespace documents
