#pragma once

#include <string>

#include "docfonts/report/DocumentReport.h"

namespace docfonts {

// A few lines for people, with the last line end and without control characters: the document, then
// indented a line for each font and placed file, then the documents that it places.
std::string WriteTable(const DocumentReport& report);

}  // namespace docfonts
