#include "GNUstepHome.h"

#include <stdlib.h>

namespace {

constexpr char kSystemConfiguration[] = "/etc/GNUstep/GNUstep.conf";

void Export(const char* name, const std::string& value)
{
    if (setenv(name, value.c_str(), 1) != 0) throw std::runtime_error("no environment");
}

}  // namespace

void GNUstepHome::Enter() const
{
    std::ifstream system(kSystemConfiguration);
    std::string configuration;
    for (std::string line; std::getline(system, line);) {
        const bool isOfUser = line.rfind("GNUSTEP_USER_", 0) == 0;
        if (!isOfUser && line.find("_TOOLS=") == std::string::npos) configuration += line + "\n";
    }
    configuration += "GNUSTEP_USER_DIR_LIBRARY=" + mFolder.Path("Library") + "\n";
    configuration += "GNUSTEP_USER_DEFAULTS_DIR=" + mFolder.Path("Defaults") + "\n";
    Export("GNUSTEP_CONFIG_FILE", mFolder.Write("GNUstep.conf", configuration));
    Export("GNUSTEP_STRING_ENCODING", "NSUTF8StringEncoding");
    // Removing this folder also removes the files that a test leaves behind, even by a crash.
    Export("TEST_TMPDIR", mFolder.Path() + "/");
    Export("HOME", mFolder.Path());
    Export("PATH", mFolder.Path("no-tools"));
}
