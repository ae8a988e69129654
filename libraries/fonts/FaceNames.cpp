#include "fonts/FaceNames.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include "fonts/MappedFile.h"

namespace fonts {

FaceNames ReadFaceNames(const std::string& path, int index)
{
    FaceNames names;
    const MappedFile file(path);
    FT_Library library = nullptr;
    if (file.GetError() != nullptr || FT_Init_FreeType(&library) != FT_Err_Ok) return names;
    FT_Face face = nullptr;
    if (FT_New_Memory_Face(library, file.GetBytes(), static_cast<FT_Long>(file.GetSize()), index,
                           &face) == FT_Err_Ok) {
        if (face->family_name != nullptr) names.family = face->family_name;
        if (face->style_name != nullptr) names.style = face->style_name;
    }
    (void)FT_Done_FreeType(library);  // with the face
    return names;
}

}  // namespace fonts
