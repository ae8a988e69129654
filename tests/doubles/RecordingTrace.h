#pragma once

#include <cstddef>
#include <string>
#include <vector>

// Replaces the trace: a program that links this keeps every line in memory. Unlike the real trace
// it doesn't limit the length of a line. Not thread-safe.

struct TraceLine {
    int indentChange;  // 1 on entry, -1 on exit, 0 between
    std::string text;
};

const std::vector<TraceLine>& Traces();
void ClearTraces();

// Returns whether there is a line with exactly this text, or how many there are.
bool HasTrace(const std::string& text);
std::size_t CountTraces(const std::string& text);

// Returns whether a line begins with this text. For lines that end in addresses.
bool HasTraceBeginningWith(const std::string& beginning);

// Returns the texts of all lines, in order.
std::vector<std::string> TraceTexts();
