#include "MenuSearch.h"

#include "CoreErrorCodes.h"

namespace {

const json* SearchArray(const json& nodes, const char* key, const char* value)
{
    for (const json& node : nodes) {
        if (!node.is_object()) continue;
        if (const json* const found = FindMenuNode(node, key, value)) return found;
    }
    return nullptr;
}

}  // namespace

unsigned int GetMenuObject(const json& node, const char* key, const char* value, json& found)
{
    const json* const match = FindMenuNode(node, key, value);
    if (match == nullptr) return CoreErrorCodes::kUnknownError;
    found = json(*match);
    return CoreErrorCodes::kSuccess;
}

const json* FindMenuNode(const json& node, const char* key, const char* value)
{
    if (node.is_array()) return SearchArray(node, key, value);
    if (!node.is_object()) return nullptr;

    const json& text = node.at(key);
    if (!text.is_string()) return nullptr;
    if (text.get_ref<const std::string&>() == value) return &node;
    const auto children = node.find("child");
    if (children == node.end() || !children->is_array()) return nullptr;
    return SearchArray(*children, key, value);
}

MenuIndex::MenuIndex(const json& root, const char* key) : mKey(key) { Add(root); }

const json* MenuIndex::Find(std::string_view value) const
{
    const auto found = mNodes.find(value);
    if (found != mNodes.end()) return found->second;
    // Throws the JSON library's exception for the missing key.
    if (mNodeWithoutKey != nullptr) (void)mNodeWithoutKey->at(mKey);
    return nullptr;
}

void MenuIndex::Add(const json& node)
{
    if (mNodeWithoutKey != nullptr) return;
    if (node.is_array()) {
        for (const json& element : node) {
            if (element.is_object()) Add(element);
        }
        return;
    }
    if (!node.is_object()) return;
    const auto text = node.find(mKey);
    if (text == node.end()) {
        mNodeWithoutKey = &node;
        return;
    }
    if (!text->is_string()) return;
    mNodes.emplace(text->get_ref<const std::string&>(), &node);
    const auto children = node.find("child");
    if (children != node.end() && children->is_array()) Add(*children);
}
