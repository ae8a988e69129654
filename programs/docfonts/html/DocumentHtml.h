#pragma once

#include <cstdint>
#include <string>

#include "docfonts/html/Demand.h"
#include "docfonts/html/Specimens.h"
#include "docfonts/report/DocumentReport.h"

namespace docfonts {

// What the documents of a page need that isn't here.
struct Demands {
    explicit Demands(const std::string& folder) : fonts(folder), styles(folder), files(folder) {}

    Demand fonts;   // missing
    Demand styles;  // fonts of which another style is here, which is the detail
    Demand files;   // placed files that are missing
};

// Writes the parts of a page that show one document and those that are placed in it. Not
// thread-safe.
class DocumentHtml {
public:
    DocumentHtml(Specimens& specimens, Demands& demands) : mSpecimens(specimens), mDemands(demands)
    {
    }

    // The document as a part of the page. Each has the id "d" and a number from 1.
    std::string Write(const DocumentReport& document);

private:
    void AppendDocument(const DocumentReport& document, unsigned depth, std::string& html);
    void AppendFonts(const DocumentReport& document, std::string& html);
    void AppendFont(const UsedFont& font, std::string& html);
    void AppendSpecimen(const UsedFont& font, std::string& html);
    void AppendPlaced(const DocumentReport& document, std::string& html);
    void NoteDemand(const DocumentReport& document);

    Specimens& mSpecimens;
    Demands& mDemands;
    uint64_t mNumber = 0;
};

}  // namespace docfonts
