#include <algorithm>
#include <cstring>

#include "AISuites.h"
#include "Fault.h"
#include "PluginGlobals.h"

// Menus, and what is registered with the host.
namespace wrong {

namespace {

unsigned int FollowWithoutMenus(const char* menusJson, AddIllustratorMenuFunction callback,
                                MenuItemHelp* help)
{
    (void)core::CreateMenusFromJSONBuffer(menusJson, callback, help);
    return 0;
}

std::string sLastTree;  // that could be read
std::string sTree;      // that the next call with a buffer gets

bool IsTree(const std::string& text)
{
    return text.rfind("{\"id\"", 0) == 0 &&
           std::count(text.begin(), text.end(), '{') == std::count(text.begin(), text.end(), '}');
}

// Fetches the tree when the size is asked for. A tree that is cut becomes the one before, disabled.
unsigned int DisableAfterBrokenTree(const char* documentPath, char* buffer, size_t* ioSize)
{
    if (buffer != nullptr) {
        std::memcpy(buffer, sTree.c_str(), std::min(sTree.size() + 1, *ioSize));
        return 0;
    }
    const unsigned int status = core::GetMenus(documentPath, nullptr, ioSize);
    if (status != kCoreTooSmall) return status;
    std::string text(*ioSize, '\0');
    const unsigned int second = core::GetMenus(documentPath, text.data(), ioSize);
    if (second != 0) return second;
    sTree = text.c_str();
    if (IsTree(sTree)) {
        sLastTree = sTree;
    } else if (!sLastTree.empty()) {
        sTree = sLastTree;
        const std::string enabled = "\"enabled\":true";
        for (size_t at = 0; (at = sTree.find(enabled, at)) != std::string::npos;) {
            sTree.replace(at, enabled.size(), "\"enabled\":false");
        }
    }
    *ioSize = sTree.size() + 1;
    return kCoreTooSmall;
}

RebuildWorkgroupsMenuFunction sRebuild = nullptr;

void RebuildOnce()
{
    static bool sIsRebuilt = false;
    if (!sIsRebuilt) sRebuild();
    sIsRebuilt = true;
}

void RebuildAndAddNotifier()
{
    sRebuild();
    AINotifierSuite* notifiers = nullptr;
    if (gGlobals == nullptr) return;
    if (sSPBasic->AcquireSuite("AI Notifier Suite", 1004, &notifiers) != kHostSuccess) return;
    AINotifierHandle notifier = nullptr;
    (void)notifiers->AddNotifier(gGlobals->pluginRef, "Open!", "AI Document Opened Notifier",
                                 &notifier);
    (void)sSPBasic->ReleaseSuite("AI Notifier Suite", 1004);
}

template <RebuildWorkgroupsMenuFunction Callback>
unsigned int PassOtherCallback(RebuildWorkgroupsMenuFunction callback)
{
    sRebuild = callback;
    return core::SetRebuildWorkgroupsMenuCallback(Callback);
}

unsigned int DropCommandWithoutDocument(const char* documentId, const char* lastKnownMenuState,
                                        const char* menuKey, const char* fontUsageJson)
{
    if (*documentId == '\0') return 0;
    return core::HandleMenuSelection(documentId, lastKnownMenuState, menuKey, fontUsageJson);
}

}  // namespace

const Fault kMenuFaults[] = {
    {711, nullptr,
     WRONG_CORE(SetRebuildWorkgroupsMenuCallback, PassOtherCallback<RebuildAndAddNotifier>)},
    {1120, nullptr, WRONG_CORE(CreateMenusFromJSONBuffer, FollowWithoutMenus)},
    {1121, nullptr, WRONG_CORE(GetMenus, DisableAfterBrokenTree)},
    {1122, nullptr, WRONG_CORE(SetRebuildWorkgroupsMenuCallback, PassOtherCallback<RebuildOnce>)},
    {1124, nullptr, WRONG_CORE(HandleMenuSelection, DropCommandWithoutDocument)},
    {0, nullptr, nullptr}};

}  // namespace wrong
