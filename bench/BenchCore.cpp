#include "BenchCore.h"

#include <cstring>

#include "PCILoader.h"

namespace bench_core {

namespace {

std::string sMenus;

}  // namespace

void SetMenus(const std::string& menus) { sMenus = menus; }

void Use()
{
    static PCILoader sLoader;
    PCILoader::sSharedInstance = &sLoader;
    sLoader.frameworkPath = "/PluginCore.framework";
    sLoader.missingFunctionCount = 0;
    sLoader.pfPluginIsEnabled = [](bool, bool* enabled) {
        *enabled = true;
        return 0U;
    };
    sLoader.pfHandleOpenExistingDocument = [](const char*, char* json, size_t*, int*) {
        *json = '\0';
        return 0U;
    };
    sLoader.pfHandleSaveDocument = [](const char*, const char*) { return 0U; };
    sLoader.pfIdleEvent = [] { return 0U; };
    sLoader.pfProcessPanelMessages = [](int) { return 0U; };
    sLoader.pfGetMenus = [](const char*, char* buffer, size_t* size) -> unsigned int {
        if (buffer == nullptr) {
            *size = sMenus.size();
            return 0x0C000000;
        }
        std::memcpy(buffer, sMenus.data(), *size);
        return 0;
    };
    sLoader.pfCreateMenusFromJSONBuffer = nullptr;
    sLoader.pfRegisterPlugPlug = [](SDKPlugPlug*) { return 0U; };
    sLoader.pfGetSocketPort = [](int*) { return 1U; };
}

}  // namespace bench_core
