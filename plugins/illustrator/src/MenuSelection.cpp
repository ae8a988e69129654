#include <cstdint>

#include "DebugUtils.h"
#include "DocumentHandlers.h"
#include "DocumentRegistry.h"
#include "FileFormatHook.h"
#include "IllustratorUtilities.h"
#include "MenuHandler.h"
#include "MenuSearch.h"
#include "MenuState.h"
#include "PCILoader.h"

namespace {

constexpr size_t kDocumentIdSize = 256;

void RefreshItem(const AIMenuSuite* menus, AIMenuItemHandle item, const json& node)
{
    // An item that the host refuses to change stays as it is.
    (void)(node.at("enabled").get<bool>() ? menus->EnableItem(item) : menus->DisableItem(item));
    (void)menus->CheckItem(item, node.at("checked").get<uint8_t>() != 0);
}

// The message is for one item, whose text is the gate; all items are then refreshed.
void RefreshAllItems(const AIMenuSuite* menus, AIMenuItemHandle item)
{
    ai::UnicodeString text;
    if (menus->GetItemText(item, text) != kHostSuccess) return;
    const std::string title = text.as_UTF8();
    const json root = json::parse(gMenuState.sLastKnownMenuState);
    if (FindMenuNode(root, "title", title.c_str()) == nullptr) return;
    const MenuIndex index(root, "id");
    for (const auto& entry : gMenuState.sMenuHandleMap) {
        // As the search does, up to a zero byte in the id.
        const std::string& id = entry.second;
        const json* const node = index.Find(id.substr(0, id.find('\0')));
        if (node != nullptr) RefreshItem(menus, entry.first, *node);
    }
}

// A new document from a template is known by its template.
void FindIdByTemplate(PCILoader* core, char* id, size_t* size)
{
    try {
        _t_AIDocument* const document = GetCurrentDocument();
        if (document == nullptr) return;
        const std::string path = GetTemplatePathForDocumentHandle(document);
        // Whether an id came shows in the buffer.
        if (!path.empty()) (void)core->pfGetIDForDocument(path.c_str(), id, size);
    } catch (...) {
        OutputIndentedAndFormattedString(0, "No document is open.");
    }
}

// Sends the present usage and gives the used fonts as JSON, or an empty text.
std::string RefreshUsage(PCILoader* core, const char* id)
{
    const std::string usage = CurrentDocumentFontUsage();
    // The command is carried out whatever PluginCore makes of the usage.
    (void)core->pfUpdateDocumentFontUsage(id, usage.c_str());
    json usedFonts;
    try {
        // A text engine code leaves what was found until then, which is all that counts.
        (void)IterateUsedFonts(usedFonts);
    } catch (...) {
        OutputIndentedAndFormattedString(0, "No fonts found in document.");
    }
    return usedFonts.is_null() ? std::string() : usedFonts.dump();
}

}  // namespace

int updateMenuItem(AIMenuMessage* message)
{
    if (message == nullptr) return kHostBadParameter;
    OutputIndentedAndFormattedString(1, "Entering %s", "updateMenuItem");
    const MenuItemHelp help;
    std::string menus;
    if (GetMenus(menus) == 0) gMenuState.sLastKnownMenuState = menus;
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
    // Without a document the path stays empty.
    (void)GetDocumentFileSpec(&path, false);
    // One byte more than PluginCore is told, so that the text ends whatever it writes.
    char documentId[kDocumentIdSize + 1] = {};
    size_t size = kDocumentIdSize;
    // Whether an id came shows in the buffer.
    (void)core->pfGetIDForDocument(path.c_str(), documentId, &size);
    if (*documentId == '\0') FindIdByTemplate(core, documentId, &size);
    std::string fontUsageJson;
    if (*documentId != '\0') fontUsageJson = RefreshUsage(core, documentId);
    const std::string menuId = gMenuState.sMenuHandleMap[message->menuItem];
    // The command is PluginCore's, and so is its failure.
    (void)core->pfHandleMenuSelection(documentId, gMenuState.sLastKnownMenuState.c_str(),
                                      menuId.c_str(), fontUsageJson.c_str());
    OutputIndentedAndFormattedString(-1, "%s() returning %d", "GoMenuItem", 0);
    return 0;
}
