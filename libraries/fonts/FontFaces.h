#pragma once

#include <memory>
#include <string>
#include <vector>

// The content of one font file, read with FreeType.
namespace fonts {

// A face with a PostScript name: a face of the file, or a named instance of a variable face. All of
// it is read while the file is open for its name.
struct FontFace {
    std::string postScriptName;
    int index = 0;  // as in FreeType: face in the low 16 bits, instance (from 1) above
    bool isType1 = false;
    // For people, as FaceNames.h has them.
    std::string family;
    std::string style;
    int weight = 0;      // 1 to 1000, as in the OS/2 table: 400 is regular, 700 bold
    std::string format;  // FreeType's word: "TrueType", "CFF", "Type 1"
};

struct FontFaces {
    std::vector<FontFace> faces;  // in the order of the file
    std::string problem;          // why the file can't be used; "" if `faces` isn't empty
    bool lacksMemory = false;     // the problem is "out of memory", which says nothing of the file
};

// Reads all faces of the file at `path`: every member of a collection and every named instance of a
// variable font, with the name that documents use for it. Skips faces without a name. For any file,
// the result has either faces or a problem, a line without the path. A file that can be read only
// in part for lack of memory has no faces. Throws nothing. Thread-safe.
FontFaces ReadFontFaces(const std::string& path);

// The same for many files: sets FreeType up once. Not thread-safe.
class FontFaceReader {
public:
    FontFaceReader();
    ~FontFaceReader();
    FontFaceReader(const FontFaceReader&) = delete;
    FontFaceReader& operator=(const FontFaceReader&) = delete;

    FontFaces Read(const std::string& path);

private:
    class FreeType;
    std::unique_ptr<FreeType> mFreeType;  // null until the first file, and after a lack of memory
};

// The same for many files at once, in as many threads as the machine has processors. Returns the
// results in the order of the paths.
std::vector<FontFaces> ReadFontFacesOfFiles(const std::vector<std::string>& paths);

}  // namespace fonts
