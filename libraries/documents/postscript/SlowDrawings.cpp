#include "documents/postscript/SlowDrawings.h"

#include <cstdint>

namespace documents {

namespace {

SlowDrawings sSlowDrawings;

}  // namespace

void UseSlowDrawings(const SlowDrawings& memory) { sSlowDrawings = memory; }

const SlowDrawings& GetSlowDrawings() { return sSlowDrawings; }

std::string NameDrawing(std::string_view postScript)
{
    // FNV-1a with 64 bits. A document made to have the hash of another one is only not drawn.
    uint64_t hash = 0xcbf29ce484222325U;
    for (const char c : postScript) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
    }
    return std::to_string(postScript.size()) + "-" + std::to_string(hash);
}

}  // namespace documents
