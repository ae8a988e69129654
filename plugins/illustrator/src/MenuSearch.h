#pragma once

#include <nlohmann/json.hpp>
#include <string_view>
#include <unordered_map>

using nlohmann::json;

// Searches of the menu tree (see MenuHandler.h), parents before their children. A node whose `key`
// isn't a string is skipped with its children. Main thread.

// Finds the first node whose member `key` is the string `value`, copies it to `found` and returns
// 0. Returns CoreErrorCodes::kUnknownError if there is none. Throws the JSON library's exception
// for a node without the key.
unsigned int GetMenuObject(const json& node, const char* key, const char* value, json& found);

// Like GetMenuObject, but returns a pointer to the node in the tree itself, or null.
const json* FindMenuNode(const json& node, const char* key, const char* value);

// FindMenuNode for many searches of one tree by the same key. The tree must not change, and must
// outlive the index.
class MenuIndex {
public:
    MenuIndex(const json& root, const char* key);

    // Throws as FindMenuNode does: if it reaches a node without the key before a match.
    const json* Find(std::string_view value) const;

private:
    void Add(const json& node);

    const char* mKey;
    std::unordered_map<std::string_view, const json*> mNodes;  // the first node for each value
    const json* mNodeWithoutKey = nullptr;  // the first; a search never gets past it
};
