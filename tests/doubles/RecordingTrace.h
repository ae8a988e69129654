#pragma once

#include <cstddef>
#include <string>
#include <vector>

// Stands in for the trace: a program that links this keeps every line in memory. All from one
// thread. The text is formatted in full, without the limit of the real trace.

struct TraceLine {
    int indentChange;  // 1 on entry, -1 on exit, 0 between
    std::string text;
};

const std::vector<TraceLine>& Traces();
void ClearTraces();

// Whether a line of exactly this text came, or how many.
bool HasTrace(const std::string& text);
std::size_t CountTraces(const std::string& text);

// Whether a line begins so, for lines that end in addresses.
bool HasTraceBeginningWith(const std::string& beginning);

// The texts alone, in order.
std::vector<std::string> TraceTexts();
