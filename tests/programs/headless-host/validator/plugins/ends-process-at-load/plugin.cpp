// Ends the process that loads it.
#include <unistd.h>

namespace {

struct AtLoad {
    AtLoad() { _exit(3); }
};

const AtLoad kAtLoad;

}  // namespace

extern "C" __attribute__((visibility("default"))) int PluginMain() { return 0; }
