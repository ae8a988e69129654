#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "docfonts/html/SpillFile.h"

namespace docfonts {

// Things, such as missing fonts, with the documents that need them. The documents are kept in a
// file, the first kMostThings things in memory. Not thread-safe.
class Demand {
public:
    static constexpr size_t kMostThings = 20'000;

    struct Thing {
        std::string name;
        std::string detail;  // as it was given first
        uint64_t documents = 0;
        uint64_t first = 0;  // where the record of the first document is
        uint64_t last = 0;
    };

    // folder   as of SpillFile
    explicit Demand(const std::string& folder) : mFile(folder) {}

    // Notes that the document needs the thing. Names are cut to kMostNameBytes.
    //
    // number   of the document in the page
    void Add(std::string_view name, std::string_view detail, uint64_t number,
             std::string_view document);

    // By name.
    std::vector<const Thing*> List() const;

    // The number of calls of Add that found no room for another thing.
    uint64_t GetOmitted() const { return mOmitted; }

    // Passes each document of the thing, in the order of Add.
    void ForEachDocument(
        const Thing& thing,
        const std::function<void(uint64_t number, std::string_view document)>& use);

    const std::error_code& GetError() const { return mFile.GetError(); }

private:
    static constexpr size_t kMostNameBytes = 1000;

    SpillFile mFile;
    std::map<std::string, Thing, std::less<>> mThings;
    uint64_t mOmitted = 0;
};

}  // namespace docfonts
