#include "EndToEnd.h"

using testing::Contains;
using testing::Pair;

namespace fs = std::filesystem;

TEST_F(EndToEnd, TheNameOfALibraryMayContainColonsAndBackslashes)
{
    for (const char* const name : {"a:b", "c:", "d\\", "e\\:f\\\\g"}) {
        fs::rename(scratch / library, scratch / name);
        library = name;
        fs::remove(scratch / "leaflet.eps");
        EXPECT_EQ(0, Open(Sample("leaflet.eps") + " --json")) << errors;
        EXPECT_THAT(States(Reports().at(0)), Contains(Pair("DejaVuSans", "activated"))) << name;
    }
}

TEST_F(EndToEnd, ALibraryThatCannotBeReadIsReported)
{
    const fs::path closed = scratch / library;
    const fs::path real = program;
    // Root reads every folder, unless it gives up the capabilities for that.
    program = scratch / "unprivileged";
    WriteFile(program,
              "#!/bin/sh\n[ $(id -u) = 0 ] || exec '" + real.string() +
                  "' \"$@\"\nexec setpriv --bounding-set=-dac_override,-dac_read_search '" +
                  real.string() + "' \"$@\"\n");
    fs::permissions(program, fs::perms::owner_all);
    fs::permissions(closed, fs::perms::none);
    (void)Open("nowhere.eps");
    fs::permissions(closed, fs::perms::owner_all);
    EXPECT_THAT(errors, testing::StartsWith("PluginCore: " + closed.string() +
                                            ": cannot be read: Permission denied\n"));
}
