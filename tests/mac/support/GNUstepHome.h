#pragma once

#include <string>

#include "ScratchFolder.h"

// A home folder for one run of a test program. GNUstep keeps its library folder and defaults in it,
// and finds no helper programs that could outlive the tests.
class GNUstepHome {
public:
    // Sets the environment variables for the program that is started next.
    void Enter() const;

private:
    ScratchFolder mFolder;
};
