#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A part of a font: one face with the glyphs that a text needs, as a font file of its own.
namespace fonts {

// What a font's licence bits (fsType of its OS/2 table) allow for a part of it inside a document
// that is looked at and printed.
enum class EmbeddingRights {
    kAllowed,    // also if the font says nothing
    kNoSubset,   // only as a whole
    kNoOutline,  // only as bitmaps
    kForbidden,
};

// "its licence bits forbid embedding"; "" for kAllowed.
std::string Describe(EmbeddingRights rights);

// Where a design axis of a variable font is.
struct AxisValue {
    std::string tag;  // four printable ASCII characters without quotes and backslash
    float value = 0;
};

// Both are included.
struct CharacterRange {
    char32_t first = 0;
    char32_t last = 0;
};

struct FontSubset {
    std::string bytes;    // a TrueType or OpenType file
    std::string problem;  // why there is none; "" if `bytes` isn't empty
    EmbeddingRights rights = EmbeddingRights::kAllowed;  // kAllowed as well if they are unknown
    uint64_t missing = 0;                   // different characters that the face doesn't have
    std::vector<CharacterRange> available;  // what the whole face has, sorted
    // The axes that whoever draws with `bytes` has to set. Usually empty: a named instance becomes
    // a plain font.
    std::vector<AxisValue> axes;
};

// Makes the subset of one face. Ligatures, marks and kerning of the characters are kept, hints are
// not. The same file, index and characters give the same bytes.
//
// path         a TrueType or OpenType font, or a collection
// index        as in FreeType: face in the low 16 bits, named instance (from 1) above
// characters   Unicode; order and repetition don't matter
//
// For any file, the result has either bytes or a problem, a line without the path. A font whose
// rights aren't kAllowed has a problem. Throws nothing but std::bad_alloc. Thread-safe.
FontSubset MakeFontSubset(const std::string& path, int index, const std::u32string& characters);

}  // namespace fonts
