#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "docfonts/html/DocumentHtml.h"
#include "docfonts/html/Totals.h"

namespace docfonts {

// The title of a page about so many documents.
std::string GetTitle(const Totals& totals);

// The head of the page for its readers: title, verdict and numbers.
//
// note   as of HtmlReport
std::string MakeSummary(const Totals& totals, const std::string& note);

// Passes the list of what is missing, with the documents that need it, to `write` in pieces.
void WriteDemands(Demands& demands, const std::function<void(std::string_view)>& write);

// The choice of documents; "" for a single one.
std::string MakeFilter(const Totals& totals);

}  // namespace docfonts
