#pragma once

#include <string>
#include <vector>

// What one font file holds, read with FreeType.
namespace fonts {

// One name that the file answers to: a face of it, or a named instance of a variable face.
struct FontFace {
    std::string postScriptName;
    int index = 0;  // FreeType's: face in the low 16 bits, instance (from 1) above
    bool isType1 = false;
};

struct FontFaces {
    std::vector<FontFace> faces;  // those that have a name, in the file's order
    std::string problem;          // why the file is of no use; empty if it has at least one face
};

// Reads all faces of the file at `path`: every member of a collection and every named instance of a
// variable font, under the name that documents write. Never throws; whatever the file holds, the
// result is a list or a reason in one line, without the path. Faces without a name are left out.
// Safe to call from several threads.
FontFaces ReadFontFaces(const std::string& path);

}  // namespace fonts
