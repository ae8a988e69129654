#pragma once

#include <string>

namespace fonts {

// How a face is called for people, in English if the font has that.
struct FaceNames {
    std::string family;  // "DejaVu Sans"
    std::string style;   // "Bold Oblique"
};

// Reads the names of one face. Both are empty if the file can't be read or has none.
//
// path    a font file of any kind that FreeType reads
// index   as in FreeType: face in the low 16 bits, named instance (from 1) above
FaceNames ReadFaceNames(const std::string& path, int index);

}  // namespace fonts
