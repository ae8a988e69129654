#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "docfonts/report/DocumentReport.h"
#include "fonts/FontSubset.h"

namespace docfonts {

// How one document's words in one font can be drawn.
struct Specimen {
    std::string styleClass;   // of the element with the words; "" if they can't be drawn
    std::string problem;      // why they can't be
    std::vector<bool> lacks;  // for each character of the words whether the font lacks it
};

// The faces that a report draws with, each with the characters of all words that are set in it.
// Its memory is bounded by kMostFaces and kMostCharacters. Not thread-safe.
class Specimens {
public:
    static constexpr size_t kMostFaces = 2000;
    static constexpr size_t kMostCharacters = 4000;  // of one face

    // Takes note of words in the font's face. Reads the font file when it is new.
    Specimen Add(const UsedFont& font, const std::u32string& words);

    // Passes a rule for each face to `write`: the font itself, as a data URL, and the class that
    // uses it. Reads the font files again: one that has changed into something unusable since then
    // hides its words.
    void WriteStyles(const std::function<void(std::string_view)>& write) const;

private:
    struct Face {
        std::string name;  // of the family and class in the page
        std::string file;
        int index = 0;
        std::string problem;
        std::vector<fonts::CharacterRange> available;
        std::u32string characters;  // sorted, each once
    };

    Face* Find(const UsedFont& font, const std::u32string& words);

    std::map<std::string, size_t> mNumbers;  // by file and index
    std::vector<Face> mFaces;
};

}  // namespace docfonts
