#include "fonts/FaceFamily.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <exception>
#include <memory>

#include "fonts/MappedFile.h"

namespace fonts {

FaceFamily ReadFaceFamily(const std::string& path, int index)
{
    FaceFamily names;
    try {
        const MappedFile file(path);
        FT_Library library = nullptr;
        if (file.GetError() || FT_Init_FreeType(&library) != FT_Err_Ok) return names;
        const std::unique_ptr<FT_LibraryRec_, FT_Error (*)(FT_Library)> owner(library,
                                                                              FT_Done_FreeType);
        FT_Face face = nullptr;
        if (FT_New_Memory_Face(library, file.GetBytes(), static_cast<FT_Long>(file.GetSize()),
                               index, &face) != FT_Err_Ok) {
            return names;
        }
        const std::unique_ptr<FT_FaceRec_, FT_Error (*)(FT_Face)> faceOwner(face, FT_Done_Face);
        if (face->family_name) names.family = face->family_name;
        if (face->style_name) names.style = face->style_name;
    } catch (const std::exception&) {
        return {};
    }
    return names;
}

}  // namespace fonts
