#include "fonts/FaceNames.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>

#include "fonts/MappedFile.h"

namespace fonts {

FaceNames ReadFaceNames(const std::string& path, int index)
{
    FaceNames names;
    const MappedFile file(path);
    FT_Library library = nullptr;
    if (file.GetError() != nullptr || FT_Init_FreeType(&library) != FT_Err_Ok) return names;
    const std::unique_ptr<FT_LibraryRec_, FT_Error (*)(FT_Library)> owner(library,
                                                                          FT_Done_FreeType);
    FT_Face face = nullptr;  // ends with the library
    if (FT_New_Memory_Face(library, file.GetBytes(), static_cast<FT_Long>(file.GetSize()), index,
                           &face) == FT_Err_Ok) {
        if (face->family_name != nullptr) names.family = face->family_name;
        if (face->style_name != nullptr) names.style = face->style_name;
    }
    return names;
}

}  // namespace fonts
