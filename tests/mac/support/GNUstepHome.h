#pragma once

#include <string>

#include "ScratchFolder.h"

// A home folder for one run of a test program: GNUstep finds its own library folder and defaults in
// it, and no tool that it could leave running behind.
class GNUstepHome {
public:
    // Puts it into the environment of the program that is started next.
    void Enter() const;

private:
    ScratchFolder mFolder;
};
