#include "checks/HandleType.h"

namespace headless {

namespace {

struct TypeRow {
    HandleType type;
    const char* name;
    bool owed;  // whether the plug-in must release it
};

constexpr TypeRow kTypes[] = {
    {HandleType::kPlugin, "plug-in", false},
    {HandleType::kDocument, "document", false},
    {HandleType::kArt, "art", false},
    {HandleType::kArtSet, "art set", true},
    {HandleType::kString, "string", true},
    {HandleType::kPath, "file path", true},
    {HandleType::kBlock, "block", true},
    {HandleType::kMemoryHandle, "memory handle", true},
    {HandleType::kFontKey, "font key", false},
    {HandleType::kNotifier, "notifier", false},
    {HandleType::kFileFormat, "file format", false},
    {HandleType::kTimer, "timer", false},
    {HandleType::kMenuItem, "menu item", false},
    {HandleType::kMenuGroup, "menu group", false},
    {HandleType::kTextFrame, "text frame", true},
    {HandleType::kStory, "story", true},
    {HandleType::kStories, "stories", true},
    {HandleType::kTextRange, "text range", true},
    {HandleType::kTextRanges, "text ranges", true},
    {HandleType::kTextRunsIterator, "text runs iterator", true},
    {HandleType::kCharFeatures, "character features", true},
    {HandleType::kCharInspector, "character inspector", true},
    {HandleType::kFontArray, "font array", true},
    {HandleType::kFont, "font", true},
};

constexpr bool AreInOrder()
{
    uint8_t place = 0;
    for (const TypeRow& row : kTypes) {
        if (static_cast<uint8_t>(row.type) != place++) return false;
    }
    return place == static_cast<uint8_t>(HandleType::kFont) + 1;
}
static_assert(AreInOrder(), "one row per type, in the order of the types");

}  // namespace

const char* GetTypeName(HandleType type) { return kTypes[static_cast<uint8_t>(type)].name; }

bool IsOwedByPlugin(HandleType type) { return kTypes[static_cast<uint8_t>(type)].owed; }

}  // namespace headless
