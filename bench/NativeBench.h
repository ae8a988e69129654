#pragma once

#include <string>
#include <vector>

// Measures how fast native documents are read, and how fast their packed data is inflated alone,
// which is the limit of any reader. Each file is read and inflated in turn for about `seconds` in
// all. Prints a line of JSON: the number of files, and medians and sums of the files' CPU seconds,
// of each file the least.
void MeasureNative(const std::vector<std::string>& files, double seconds);
