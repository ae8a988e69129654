#pragma once

#include <string>
#include <vector>

#include "HostInterface.h"

// A host whose answers cost next to nothing: references are numbers, releases do nothing. It fills
// the suite globals, so that no message is needed. One document, whose runs take the fonts in turn.
namespace bench_host {

struct Document {
    int frames = 0;
    int runsOfFrame = 0;
    std::vector<std::string> fonts;
    std::string path;
};

// Makes `document` the current one and fills the suite globals.
void Use(const Document& document);

// The basic suite, for messages.
SPBasicSuite* GetBasicSuite();

// Walks the current document with the very host calls of the usage report, and nothing else; calls
// `perRun` with each run's font name.
void WalkBare(void (*perRun)(const char* name));

// How many blocks of memory the program has taken so far.
size_t GetAllocationCount();

}  // namespace bench_host
