#include "BenchCore.h"

#include <cstring>

#include "PCILoader.h"

namespace bench_core {

namespace {

std::string sMenus;
std::string sFonts;
size_t sDialogs = 0;
size_t sActivations = 0;

}  // namespace

void SetMenus(const std::string& menus) { sMenus = menus; }

void SetFonts(const std::string& fonts) { sFonts = fonts; }

size_t CountActivations() { return sActivations; }

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
        std::memcpy(json, sFonts.c_str(), sFonts.size() + 1);
        return 0U;
    };
    sLoader.pfInvokeResolveDialog = [](char*, size_t*) {
        ++sDialogs;
        return 0U;
    };
    sLoader.pfActivateChosenFonts = [](const char*, const char* json, int*) {
        if (sDialogs > sActivations && *json != '\0') ++sActivations;
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
