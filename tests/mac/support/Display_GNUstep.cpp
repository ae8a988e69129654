#include <signal.h>
#include <stdlib.h>
#include <sys/prctl.h>

#include <stdexcept>

#include "Display.h"
#include "XvfbDisplay.h"

void EnterDisplay()
{
    // GNUstep's application asks its user before it ends on SIGTERM, so SIGKILL is sent when the
    // parent ends.
    (void)prctl(PR_SET_PDEATHSIG, SIGKILL);
    static const XvfbDisplay sDisplay;
    if (setenv("DISPLAY", sDisplay.Name().c_str(), 1) != 0) throw std::runtime_error("no display");
}
