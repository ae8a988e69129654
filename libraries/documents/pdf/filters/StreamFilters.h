#pragma once

namespace documents {

// Replaces the PDF library's filters for Flate, LZW and run lengths by filters that take from the
// calling thread's ReadBudget, so that streams that the library decodes on its own (cross-reference
// and object streams) are limited too. Affects the whole process. Idempotent. [thread-safe]
void InstallStreamFilters();

}  // namespace documents
