#pragma once

#include <sys/types.h>

#include <string>

// An X server without a screen, on the first free display. Ends with this object, or with the
// process however that ends.
class XvfbDisplay {
public:
    XvfbDisplay();
    ~XvfbDisplay();
    XvfbDisplay(const XvfbDisplay&) = delete;
    XvfbDisplay& operator=(const XvfbDisplay&) = delete;

    // Its name as DISPLAY wants it.
    const std::string& Name() const { return mName; }

private:
    pid_t mServer = -1;
    std::string mName;
};
