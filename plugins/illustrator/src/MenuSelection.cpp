#include "MenuSelection.h"

#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <utility>

#include "CurrentDocument.h"
#include "DebugUtils.h"
#include "DocumentRegistry.h"
#include "GJSONUtils.h"
#include "IllustratorUtilities.h"
#include "MenuConstruction.h"
#include "MenuSearch.h"
#include "MenuState.h"
#include "PCILoader.h"
#include "UsedFonts.h"

namespace {

constexpr size_t kDocumentIdSize = 256;

// Whether the value marks an item. Numbers count by their low byte; a fraction is cut off first,
// and one that no 32-bit number holds is 0. Throws if the value is no number or boolean.
bool IsMark(const json& value)
{
    if (!value.is_number_float()) return value.get<uint8_t>() != 0;
    const auto number = value.get<double>();
    const bool fits = number > -2147483649.0 && number < 2147483648.0;
    return fits && static_cast<uint8_t>(static_cast<int32_t>(number)) != 0;
}

void RefreshItem(const AIMenuSuite* menus, AIMenuItemHandle item, const json& node)
{
    // If the host refuses, the item keeps its state.
    (void)(node.at("enabled").get<bool>() ? menus->EnableItem(item) : menus->DisableItem(item));
    (void)menus->CheckItem(item, IsMark(node.at("checked")));
}

// Refreshes all items, provided that the menu tree has a node with the title of `item`.
void RefreshAllItems(const AIMenuSuite* menus, AIMenuItemHandle item)
{
    ai::UnicodeString text;
    if (menus->GetItemText(item, text) != kHostSuccess) return;
    const std::string title = text.as_UTF8();
    json root = GJSONUtils::ParseOrThrow(gMenuState.sLastKnownMenuState);
    const GJSONScope scope(root);
    if (FindMenuNode(root, "title", title.c_str()) == nullptr) return;
    const MenuIndex index(root, "id");
    for (const auto& entry : gMenuState.sMenuHandleMap) {
        // Compare as FindMenuNode does: only up to the first zero byte.
        const std::string_view id = entry.second;
        const json* const node = index.Find(id.substr(0, id.find('\0')));
        if (node != nullptr) RefreshItem(menus, entry.first, *node);
    }
}

// PluginCore knows a new document from a template by the template's path.
void FindIdByTemplate(PCILoader* core, char* id, size_t* size)
{
    try {
        _t_AIDocument* const document = GetCurrentDocument();
        if (document == nullptr) return;
        const std::string path = GetTemplatePathForDocumentHandle(document);
        // Without an id the buffer is empty, which the caller tests.
        if (!path.empty()) (void)core->pfGetIDForDocument(path.c_str(), id, size);
    } catch (...) {
        OutputIndentedAndFormattedString(0, "No document is open.");
    }
}

// Sends the usage report to PluginCore. Returns the used fonts as JSON, or an empty string.
std::string RefreshUsage(PCILoader* core, const char* id)
{
    const std::string usage = CurrentDocumentFontUsage();
    // The command is passed on even if PluginCore refuses the usage.
    (void)core->pfUpdateDocumentFontUsage(id, usage.c_str());
    json usedFonts = CollectUsedFonts();
    const GJSONScope scope(usedFonts);
    return usedFonts.is_null() ? std::string() : usedFonts.dump();
}

}  // namespace

int updateMenuItem(AIMenuMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s", "updateMenuItem");
    const MenuItemHelp help;
    std::string menus;
    if (GetMenus(menus) == 0) gMenuState.sLastKnownMenuState = std::move(menus);
    RefreshAllItems(help.menuSuite, message->menuItem);
    OutputIndentedAndFormattedString(-1, "%s returning %d", "updateMenuItem", 0);
    return 0;
}

int GoMenuItem(AIMenuMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s()", "GoMenuItem");
    PCILoader* const core = PCILoader::GetSharedInstance();
    std::string path;
    // Without a document the path is empty.
    (void)GetDocumentFileSpec(&path, false);
    // One byte more than PluginCore may write, so that the text is always terminated.
    char documentId[kDocumentIdSize + 1] = {};
    size_t size = kDocumentIdSize;
    // Without an id the buffer is empty.
    (void)core->pfGetIDForDocument(path.c_str(), documentId, &size);
    if (*documentId == '\0') FindIdByTemplate(core, documentId, &size);
    std::string fontUsageJson;
    if (*documentId != '\0') fontUsageJson = RefreshUsage(core, documentId);
    const std::string menuId = gMenuState.sMenuHandleMap[message->menuItem];
    // PluginCore carries the command out: the plug-in has no use for its status.
    (void)core->pfHandleMenuSelection(documentId, gMenuState.sLastKnownMenuState.c_str(),
                                      menuId.c_str(), fontUsageJson.c_str());
    OutputIndentedAndFormattedString(-1, "%s() returning %d", "GoMenuItem", 0);
    return 0;
}
