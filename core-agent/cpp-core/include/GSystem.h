#pragma once

// Which operating system the code behaves for, and sleeping. Stateless. [any thread]
//
// Code that asks, for example GFileSystemSpec, wants to know which rules for paths to follow. There
// are two sets, Windows and POSIX, and the POSIX set carries the name of macOS. Linux has POSIX
// paths and therefore answers as macOS does.
class GSystem {
public:
    // Returns 0 for POSIX paths, 1 or 2 for Windows. 0 on every platform that this system supports.
    static int OSGetSystem();
    // Returns true if OSGetSystem() is 0, so also on Linux: "follow the macOS branch". It can't
    // tell the two apart; what differs between them is in files with the suffixes _Mac and _Linux.
    static bool IsMacOSX();
    // Returns true if OSGetSystem() is 1 or 2: never.
    static bool IsWindows();

    // Suspends the calling thread. A signal may end the sleep early. The multiplication to
    // microseconds wraps at 32 bits, so values above 4,294,967 ms sleep for too short a time.
    static void OSSleep(unsigned int milliseconds);
};
