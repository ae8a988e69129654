#pragma once

#include <sys/types.h>

#include <string>

// A virtual X server on the first free display. The destructor stops it; it also ends when the
// process ends, normally or not.
class XvfbDisplay {
public:
    XvfbDisplay();
    ~XvfbDisplay();
    XvfbDisplay(const XvfbDisplay&) = delete;
    XvfbDisplay& operator=(const XvfbDisplay&) = delete;

    // Returns the value for DISPLAY, ":" and a number.
    const std::string& Name() const { return mName; }

private:
    pid_t mServer = -1;
    std::string mName;
};
