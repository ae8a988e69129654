#pragma once

#include <string>
#include <string_view>

namespace documents {

// What a file's first bytes say that it is.
enum class Container {
    kNone,        // not a document, or empty
    kPDF,         // "%PDF-" within the first 1,024 bytes
    kPostScript,  // "%!PS" at the start
    kDosEPS,      // the bytes C5 D0 D3 C6: a header that points at a PostScript section
};

Container GetContainer(std::string_view head);

struct PostScriptSection {
    std::string_view bytes;
    std::string note;   // set if the section is shorter than the header says
    std::string error;  // set if there is no such section
};

// The section that the header of a DOS EPS points at, as a view into `file`.
PostScriptSection FindPostScriptSection(std::string_view file);

// The extension is .ait in any case of letters.
bool IsTemplatePath(std::string_view path);

}  // namespace documents
