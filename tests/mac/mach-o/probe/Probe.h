#pragma once

#include <cstdint>

// What the probe's PluginMain takes as its message, by selector. The probe is a bundle for macOS
// with what the shipped one has little of; the test that loads it is a program for Linux.

struct ProbeThrow {  // "int", "object", "standard": what is thrown through three frames; "direct":
                     // through one
    int destroyed;   // the objects of these frames that were destroyed
    int caught;      // the value that the handler received
    bool kept;       // the variables of the frame with the handler have their values
};

struct ProbeStatus {  // "status"
    const char* path;
    int result;
    bool isFolder;
    int64_t size;
    int64_t seconds;  // of the last change
};

struct ProbeAppend {  // "append"
    const char* path;
    const char* text;
    int result;
    int error;  // errno after a failure
};

// "thread-local" and "static-mutex" take an int, which they set; "at-exit" takes nothing and makes
// the end of the process print "second first".
