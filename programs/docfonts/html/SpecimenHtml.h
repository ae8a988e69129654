#pragma once

#include <cstddef>
#include <string>

#include "docfonts/html/Specimens.h"
#include "docfonts/report/DocumentReport.h"

namespace docfonts {

// What is set in a font to show it.
struct SpecimenText {
    std::u32string characters;
    size_t display = 0;  // the first so many are set large, the others as text
    bool isOwn = true;   // the document's words; a sample otherwise
};

// The document's words, or a sample if it has none that is legible.
SpecimenText GetSpecimenText(const UsedFont& font);

// Appends the text set in its font.
void AppendDrawn(const SpecimenText& text, const Specimen& specimen, const UsedFont& font,
                 std::string& html);

// Appends the text so that nobody takes it for its font.
void AppendUndrawn(const SpecimenText& text, const std::string& reason, std::string& html);

}  // namespace docfonts
