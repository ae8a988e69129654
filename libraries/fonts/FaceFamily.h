#pragma once

#include <string>

namespace fonts {

// What a person calls a face.
struct FaceFamily {
    std::string family;
    std::string style;
};

// Reads the names of one face of the file at `path`, "" where it has none. `index` is as in
// FontFace. A file that can't be read has none. Throws nothing. Thread-safe.
FaceFamily ReadFaceFamily(const std::string& path, int index);

}  // namespace fonts
