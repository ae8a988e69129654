#include "documents/pdf/quick/QuickObject.h"

#include <algorithm>
#include <qpdf/QPDFObjectHandle.hh>

namespace documents {

namespace {

// The value of the last entry with the key; null if there is none.
const QuickNode* FindValue(const QuickNode& dictionary, std::string_view key)
{
    const QuickNode* const items = dictionary.items;
    if (dictionary.count <= QuickNode::kMostUnsorted) {
        for (size_t i = dictionary.count; i > 0; --i) {
            if (items[2 * i - 2].text == key) return &items[2 * i - 1];
        }
        return nullptr;
    }
    size_t first = 0;
    size_t last = dictionary.count;
    while (first < last) {
        const size_t middle = (first + last) / 2;
        if (items[2 * middle].text < key) {
            first = middle + 1;
        } else {
            last = middle;
        }
    }
    const bool isFound = first < dictionary.count && items[2 * first].text == key;
    return isFound ? &items[2 * first + 1] : nullptr;
}

}  // namespace

std::string QuickObject::getUTF8Value() const
{
    // Rare: the library decodes the string.
    return QPDFObjectHandle::parse(std::string(mNode->text)).getUTF8Value();
}

QuickObject QuickObject::getArrayItem(int index) const
{
    return mFile->Resolve(mNode->items + index);
}

QuickObject QuickObject::getKey(std::string_view key) const
{
    const QuickNode* const value = FindValue(*mNode, key);
    return value == nullptr ? QuickObject() : mFile->Resolve(value);
}

std::vector<std::string> QuickObject::getKeys() const
{
    std::vector<std::string> keys;
    for (size_t i = 0; i < mNode->count; ++i) keys.emplace_back(mNode->items[2 * i].text);
    std::sort(keys.begin(), keys.end());
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    const auto isNullValue = [this](const std::string& key) { return getKey(key).isNull(); };
    keys.erase(std::remove_if(keys.begin(), keys.end(), isNullValue), keys.end());
    return keys;
}

}  // namespace documents
