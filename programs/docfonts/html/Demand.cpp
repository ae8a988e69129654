#include "docfonts/html/Demand.h"

#include <cstring>

namespace docfonts {
namespace {

constexpr size_t kMostPathBytes = 4096;

// What precedes a document's path in the file.
struct DemandRecord {
    uint64_t next;    // the position of the next record of the same thing
    uint64_t number;  // of the document
    uint64_t size;    // of the path
};

template <typename T>
std::string_view ToBytes(const T& value)
{
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

}  // namespace

void Demand::Add(std::string_view name, std::string_view detail, uint64_t number,
                 std::string_view document)
{
    name = name.substr(0, kMostNameBytes);
    auto place = mThings.find(name);
    const bool isNew = place == mThings.end();
    if (isNew && mThings.size() >= kMostThings) {
        ++mOmitted;
        return;
    }
    if (isNew) {
        Thing thing;
        thing.name = name;
        thing.detail = detail.substr(0, kMostNameBytes);
        place = mThings.emplace(thing.name, thing).first;
    }
    Thing& thing = place->second;
    document = document.substr(0, kMostPathBytes);
    const uint64_t position = mFile.Append(ToBytes(DemandRecord{0, number, document.size()}));
    (void)mFile.Append(document);
    if (isNew) {
        thing.first = position;
    } else {
        mFile.Replace(thing.last, ToBytes(position));  // its member `next`
    }
    thing.last = position;
    ++thing.documents;
}

std::vector<const Demand::Thing*> Demand::List() const
{
    std::vector<const Thing*> things;
    for (const auto& [name, thing] : mThings) things.push_back(&thing);
    return things;
}

void Demand::ForEachDocument(
    const Thing& thing, const std::function<void(uint64_t number, std::string_view document)>& use)
{
    uint64_t position = thing.first;
    for (uint64_t count = 0; count < thing.documents; ++count) {
        char buffer[sizeof(DemandRecord) + kMostPathBytes];
        const size_t size = mFile.Read(position, buffer, sizeof buffer);
        DemandRecord record = {};
        if (size < sizeof record) return;  // GetError says why
        std::memcpy(&record, buffer, sizeof record);
        use(record.number, {buffer + sizeof record, record.size});
        position = record.next;
    }
}

}  // namespace docfonts
