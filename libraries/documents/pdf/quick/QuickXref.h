#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "documents/bytes/ByteBuffer.h"
#include "documents/pdf/quick/QuickParser.h"

namespace documents {

struct QuickEntry {
    enum class Place : uint8_t { kUnknown, kFree, kInFile, kInStream };
    Place place = Place::kUnknown;
    uint32_t index = 0;   // in its object stream
    uint64_t offset = 0;  // in the file; number of its object stream
};

// Where the objects of a file are.
struct QuickXref {
    std::vector<QuickEntry> entries;  // by number
    QuickNode trailer;                // a dictionary
};

// Reads a stream object at a position of the file and appends its decoded data; returns its
// dictionary. Throws Irregular.
using ReadQuickStream = std::function<QuickNode(size_t position, ByteBuffer& data)>;

// Follows the chain of cross-reference tables and streams. Throws Irregular.
QuickXref ReadQuickXref(std::string_view bytes, QuickNodes& nodes, const ReadQuickStream& read);

// Returns the value of a key whose value isn't a reference; null if there is none.
const QuickNode* FindDirect(const QuickNode& dictionary, std::string_view key);

}  // namespace documents
