#include "MenuConstruction.h"

#include <cstring>
#include <new>

#include "CoreErrorCodes.h"
#include "CurrentDocument.h"
#include "DebugUtils.h"
#include "HostSuites.h"
#include "MenuState.h"
#include "PCILoader.h"
#include "PluginGlobals.h"
#include "TraceArguments.h"

namespace {

constexpr char kMenuSuiteName[] = "AI Menu Suite";
constexpr int kMenuSuiteVersion = 1011;
constexpr char kTopLevelGroup[] = "Type Plugins1";
constexpr int32_t kWantsUpdateOption = 1;
constexpr int32_t kSeparatorOption = 4;

// The system may promise more memory than it has, so a larger size counts as one that can't be
// allocated. Menus have a few thousand bytes.
constexpr size_t kLargestMenusSize = size_t{64} << 20;

bool IsText(const char* text, const char* expected)
{
    return text != nullptr && std::strcmp(text, expected) == 0;
}

// Returns whether any item of the host, also of another plug-in, has the label as its key. Skips
// items whose key the host doesn't return.
bool IsItemPresent(const AIMenuSuite* menus, const char* label)
{
    int count = 0;
    if (menus->CountMenuItems(&count) != kHostSuccess) return false;
    bool isPresent = false;
    for (int index = 0; index < count; ++index) {
        AIMenuItemHandle item = nullptr;
        const char* key = nullptr;
        if (menus->GetNthMenuItem(index, &item) != kHostSuccess ||
            menus->GetMenuItemKeyboardShortcutDictionaryKey(item, &key) != kHostSuccess ||
            label == nullptr || !IsText(key, label)) {
            continue;
        }
        OutputIndentedAndFormattedString(0, "Error: '%s' menu item already present.", label);
        isPresent = true;
    }
    return isPresent;
}

// Traces the label as a shortcut key, which must not contain a slash. We add items without a
// shortcut key, so the result is used for the trace only.
void TraceLegalKey(std::string label)
{
    for (size_t position = label.find('/'); position != std::string::npos;
         position = label.find('/')) {
        label[position] = '-';
        OutputIndentedAndFormattedString(0, "Replaced char at position %d to make '%s'",
                                         static_cast<int>(position), label.c_str());
    }
}

void RememberItem(AIMenuItemHandle item, const char* id, const char* label, const char* parentID)
{
    // An item that the host refused is stored too, under the null handle.
    gMenuState.sMenuHandleMap[item] = id != nullptr ? id : "";
    if (IsText(label, kSelectLibrary)) {
        gMenuState.sSelectLibraryMenuHandle = item;
    } else if (IsText(parentID, kSelectLibrary)) {
        gMenuState.sSelectLibraryMenuItems.push_back(item);
    }
}

AIErr AddItem(const AIMenuSuite* menus, const char* label, const char* title, bool hasSubmenu,
              const char* parentID, const char* id)
{
    // After a start that failed, PluginCore can still rebuild the menu of the start before it.
    if (gGlobals == nullptr) return kHostBadParameter;
    const bool hasTitle = title != nullptr && *title != '\0';
    AIPlatformAddMenuItemDataUS data = {
        parentID, hasTitle ? ai::UnicodeString::FromUTF8(title) : ai::UnicodeString()};
    const int32_t options = hasTitle ? kWantsUpdateOption : kSeparatorOption;
    AIMenuItemHandle item = nullptr;
    const AIErr result = menus->AddMenuItem(gGlobals->pluginRef, nullptr, &data, options, &item);
    RememberItem(item, id, label, parentID);
    OutputIndentedAndFormattedString(
        0,
        "Calling AddMenuItem(SPPluginRef=0x%08x, itemKeyWithIllegalCharsRemoved='%s', "
        "menuData.groupName='%s', menuData.itemText='%s', options=0x%08x, pMenuItem=0x%08x",
        TracePointer(gGlobals->pluginRef), TraceText(label), parentID, hasTitle ? title : "",
        static_cast<unsigned int>(options), TracePointer(item));
    if (item != nullptr && hasSubmenu) {
        AIMenuGroup group = nullptr;
        // The children refer to the group by its name, so neither result is used.
        (void)menus->AddMenuGroupAsSubMenu(label != nullptr ? label : "", 0, item, &group);
    }
    return result;
}

}  // namespace

MenuItemHelp::MenuItemHelp() { AcquireSuite(kMenuSuiteName, kMenuSuiteVersion, &menuSuite); }

MenuItemHelp::~MenuItemHelp() { ReleaseSuite(kMenuSuiteName, kMenuSuiteVersion, &menuSuite); }

unsigned int GetMenus(std::string& menus)
{
    OutputIndentedAndFormattedString(1, "Entering %s()", "GetMenus");
    std::string path;
    // Without a document the path is empty.
    (void)GetDocumentFileSpec(&path, false);
    menus.clear();
    size_t size = 0;
    unsigned int result = 0;
    PCILoader* const core = PCILoader::GetSharedInstance();
    if (core->pfGetMenus(path.c_str(), nullptr, &size) == CoreErrorCodes::kIndexOutOfRange) {
        if (size > kLargestMenusSize) throw std::bad_alloc();
        menus.resize(size, '\0');
        result = core->pfGetMenus(path.c_str(), &menus[0], &size);
    }
    OutputIndentedAndFormattedString(0, "GetMenus result: %s", menus.c_str());
    OutputIndentedAndFormattedString(-1, "%s() returning %d", "GetMenus", static_cast<int>(result));
    return result;
}

unsigned int AddAllCorvantaMenuItems(SPInterfaceMessage* /*message*/)
{
    OutputIndentedAndFormattedString(1, "Entering %s()", "AddAllCorvantaMenuItems");
    MenuItemHelp help;
    std::string menus;
    // On an error PluginCore is given whatever text there is.
    (void)GetMenus(menus);
    const unsigned int result = PCILoader::GetSharedInstance()->pfCreateMenusFromJSONBuffer(
        menus.c_str(), AddIllustratorMenu, &help);
    OutputIndentedAndFormattedString(-1, "%s() returning %d", "AddAllCorvantaMenuItems",
                                     static_cast<int>(result));
    return result;
}

unsigned int AddIllustratorMenu(const char* id, const char* label, const char* title, bool checked,
                                bool enabled, bool hasSubmenu, const char* parentID, void* context)
{
    OutputIndentedAndFormattedString(
        1, "Entering %s(id='%s', label='%s', checked=%d, enabled=%d, parentID=%s, 0x%08x)",
        "AddIllustratorMenu", TraceText(id), TraceText(label), checked, enabled,
        TraceText(parentID), TracePointer(context));
    const AIMenuSuite* const menus = static_cast<MenuItemHelp*>(context)->menuSuite;
    unsigned int result = 0;
    if (parentID == nullptr) {
        parentID = kTopLevelGroup;
        if (IsItemPresent(menus, label)) result = CoreErrorCodes::kItemAlreadyExists;
    }
    if (result == 0) {
        TraceLegalKey(label != nullptr ? label : "");
        result = static_cast<unsigned int>(AddItem(menus, label, title, hasSubmenu, parentID, id));
    }
    OutputIndentedAndFormattedString(-1, "%s() returning %d", "AddIllustratorMenu",
                                     static_cast<int>(result));
    return result;
}
