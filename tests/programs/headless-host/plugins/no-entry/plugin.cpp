// A module without PluginMain.
extern "C" __attribute__((visibility("default"))) int NotPluginMain() { return 0; }
