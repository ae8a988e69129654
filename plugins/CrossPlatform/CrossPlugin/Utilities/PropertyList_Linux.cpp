#include "PropertyList_Linux.h"

#include <plist/plist.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>

#include "FileProbes.h"

namespace {

struct PlistDeleter {
    void operator()(void* node) const { plist_free(node); }
};

struct Freer {
    void operator()(void* block) const { std::free(block); }
};

}  // namespace

bool ReadPropertyList(const std::string& path, std::map<std::string, std::string>& texts)
{
    if (!CorvantaFileUtils::FileExists(path)) return false;
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)),
                            std::istreambuf_iterator<char>());
    if (!file || bytes.empty()) return false;

    plist_t parsed = nullptr;
    plist_from_memory(bytes.data(), static_cast<uint32_t>(bytes.size()), &parsed);
    const std::unique_ptr<void, PlistDeleter> root(parsed);
    if (!root || plist_get_node_type(root.get()) != PLIST_DICT) return false;

    plist_dict_iter rawIterator = nullptr;
    plist_dict_new_iter(root.get(), &rawIterator);
    const std::unique_ptr<void, Freer> iterator(rawIterator);
    for (;;) {
        char* rawKey = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(root.get(), iterator.get(), &rawKey, &value);
        const std::unique_ptr<char, Freer> key(rawKey);
        if (!key || value == nullptr) return true;
        if (plist_get_node_type(value) != PLIST_STRING) continue;
        char* rawText = nullptr;
        plist_get_string_val(value, &rawText);
        const std::unique_ptr<char, Freer> text(rawText);
        if (text) texts[key.get()] = text.get();
    }
}
