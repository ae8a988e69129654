#pragma once

#include <string>
#include <string_view>

namespace documents {

// The kind of a file by its first bytes.
enum class Container {
    kNone,        // none of the others, or empty
    kPDF,         // "%PDF-" within the first 1,024 bytes
    kPostScript,  // "%!" at the start
    kDosEPS,      // C5 D0 D3 C6 at the start: a header that points to a PostScript section
};

// `head` is the file or at least its first 1,024 bytes.
Container GetContainer(std::string_view head);

struct PostScriptSection {
    std::string_view bytes;
    std::string note;   // set if the section is shorter than the header says
    std::string error;  // set if there is no such section
};

// Returns the section that the header of a DOS EPS points to, as a view into `file`.
PostScriptSection FindPostScriptSection(std::string_view file);

// Whether the extension is .ait, in upper or lower case.
bool IsTemplatePath(std::string_view path);

}  // namespace documents
