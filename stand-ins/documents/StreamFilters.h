#pragma once

namespace documents {

// Puts filters that take from the calling thread's ReadBudget in the place of the PDF library's
// own for Flate, LZW and run lengths, so that what it inflates by itself (cross-reference and
// object streams) is limited too. For the whole process, once; may be called from any thread.
void InstallStreamFilters();

}  // namespace documents
