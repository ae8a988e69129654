#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <unordered_map>

using nlohmann::json;

// What GetMenuObject finds, in place: a node of the tree itself, or null.
const json* FindMenuNode(const json& node, const char* key, const char* value);

// The same for many searches of one tree. The tree must stay as it is for the index's life.
class MenuIndex {
public:
    MenuIndex(const json& root, const char* key);

    // Throws where a search would: at a node without the key in front of which there is no match.
    const json* Find(const std::string& value) const;

private:
    void Add(const json& node);

    const char* mKey;
    std::unordered_map<std::string, const json*> mNodes;  // the first of each value
    const json* mNodeWithoutKey = nullptr;                // where every search ends
};
