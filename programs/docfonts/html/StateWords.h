#pragma once

#include <string>

#include "docfonts/html/Totals.h"
#include "docfonts/report/DocumentReport.h"

namespace docfonts {

// How a page shows a state: always a word with a sign, so that nothing depends on colour.
struct StateWords {
    const char* word;
    const char* icon;   // the id of a symbol of icons.svg
    const char* style;  // a class of report.css
};

const StateWords& GetWords(FontState state);
const StateWords& GetWords(PlacedState state);
const StateWords& GetWords(DocumentState state);

// Appends the sign and the word, or `word` in its place.
void AppendBadge(const StateWords& words, std::string& html, const std::string& word = {});

}  // namespace docfonts
