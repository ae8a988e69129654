#pragma once

class GSystem {
public:
    // 0 for the POSIX behaviour of paths, which every target of this system has; 1 or 2 for
    // Windows.
    static int OSGetSystem();
    static bool IsMacOSX();
    static bool IsWindows();

    // Multiplies in 32 bits: a value above 4,294,967 wraps.
    static void OSSleep(unsigned int milliseconds);
};
