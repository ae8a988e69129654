#pragma once

#include <string_view>

// The fixed parts of a page, from report.css, report.js and icons.svg.
namespace docfonts {

struct PageParts {
    std::string_view style;
    std::string_view script;
    std::string_view scriptHash;  // of the very bytes of `script`: SHA-256 in hexadecimal
    std::string_view icons;
};

const PageParts& GetPageParts();

}  // namespace docfonts
