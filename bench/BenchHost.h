#pragma once

#include <string>
#include <vector>

#include "HostInterface.h"

// A host whose functions take almost no time: references are numbers, and releasing one does
// nothing. It fills the suite globals, so that no startup message is needed. It has one document,
// whose runs use the fonts in rotation.
namespace bench_host {

struct Document {
    int frames = 0;
    int runsOfFrame = 0;
    std::vector<std::string> fonts;
    std::string path;
};

// Makes `document` the current one and fills the suite globals.
void Use(const Document& document);

// Returns the basic suite, which messages contain.
SPBasicSuite* GetBasicSuite();

// Walks the current document with exactly the host calls of the usage report and calls `perRun`
// with the font name of each run.
void WalkBare(void (*perRun)(const char* name));

// Returns the number of memory allocations of the program so far.
size_t GetAllocationCount();

}  // namespace bench_host
