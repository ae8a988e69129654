#pragma once

#include <cstdint>
#include <qpdf/QPDFObjGen.hh>
#include <string>
#include <string_view>
#include <vector>

namespace documents {

enum class QuickType : uint8_t {
    kNull,
    kBoolean,
    kInteger,
    kReal,
    kName,
    kString,
    kArray,
    kDictionary,
    kStream,
    kReference,
};

// A parsed value. Nodes are owned by their QuickFile.
struct QuickNode {
    // A dictionary with more entries is sorted by key and has each key once.
    static constexpr uint32_t kMostUnsorted = 16;

    QuickType type = QuickType::kNull;
    bool isRaw = false;     // a string in the bytes of the file, with its delimiters
    uint32_t count = 0;     // of the elements of an array, of the entries of a dictionary
    long long integer = 0;  // value; of a reference: the object's number
    // A name with its slash, a string, or the stored data of a stream.
    std::string_view text;
    // Elements; keys and values in turn, of which the last of equal keys is valid; a stream's
    // dictionary.
    const QuickNode* items = nullptr;
};

class QuickObject;

// Where references lead: a QuickFile.
class QuickTargets {
public:
    virtual ~QuickTargets() = default;

    // Returns the value, or the object that it refers to. Throws Irregular.
    virtual QuickObject Resolve(const QuickNode* node) = 0;

protected:
    QuickTargets() = default;
};

// A value of a QuickFile, which must outlive it. Has the functions of the PDF library's handle that
// the readers use, with the same names and results, so that the readers are templates of both.
// References are resolved wherever a value is returned. Functions throw Irregular.
class QuickObject {
public:
    QuickObject() = default;  // null
    static QuickObject newNull() { return {}; }
    QuickObject(QuickTargets& file, const QuickNode* node, QPDFObjGen id = {})
        : mFile(&file), mNode(node), mId(id)
    {
    }

    bool isNull() const { return GetType() == QuickType::kNull; }
    bool isInteger() const { return GetType() == QuickType::kInteger; }
    bool isName() const { return GetType() == QuickType::kName; }
    bool isString() const { return GetType() == QuickType::kString; }
    bool isArray() const { return GetType() == QuickType::kArray; }
    bool isDictionary() const { return GetType() == QuickType::kDictionary; }
    bool isStream() const { return GetType() == QuickType::kStream; }

    bool isIndirect() const { return mId.getObj() != 0; }
    QPDFObjGen getObjGen() const { return mId; }

    // Each needs a value of the right type.
    long long getIntValue() const { return mNode->integer; }
    std::string getName() const { return std::string(mNode->text); }
    std::string getUTF8Value() const;
    int getArrayNItems() const { return static_cast<int>(mNode->count); }
    QuickObject getArrayItem(int index) const;
    QuickObject getDict() const { return {*mFile, mNode->items}; }

    // Of a dictionary; null if it has no such key.
    QuickObject getKey(std::string_view key) const;
    // The keys whose values aren't null, in byte order.
    std::vector<std::string> getKeys() const;

    std::string_view GetText() const { return mNode->text; }

private:
    QuickType GetType() const { return mNode == nullptr ? QuickType::kNull : mNode->type; }

    QuickTargets* mFile = nullptr;
    const QuickNode* mNode = nullptr;
    QPDFObjGen mId;
};

// Returns the value of a key, or null if there is none or `object` isn't a dictionary.
inline QuickObject GetKeyOrNull(const QuickObject& object, std::string_view key)
{
    return object.isDictionary() ? object.getKey(key) : QuickObject();
}

}  // namespace documents
