#include "documents/write/WriteText.h"

#include <cairo-ft.h>
#include <cairo-pdf.h>
#include <cairo-ps.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "base/Utf8.h"

namespace documents {

namespace {

template <auto Release>
struct Releaser {
    template <class T>
    void operator()(T* object) const
    {
        (void)Release(object);  // nothing can be done about a failure
    }
};

using Surface = std::unique_ptr<cairo_surface_t, Releaser<cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Releaser<cairo_destroy>>;
using CairoFace = std::unique_ptr<cairo_font_face_t, Releaser<cairo_font_face_destroy>>;
using FreeTypeFace = std::unique_ptr<FT_FaceRec_, Releaser<FT_Done_Face>>;

// Never closed: cairo caches faces until the process ends.
FT_Library GetFreeType()
{
    static FT_Library const library = [] {
        FT_Library opened = nullptr;
        if (FT_Init_FreeType(&opened) != 0) {
            throw std::runtime_error("FreeType cannot be initialized");
        }
        return opened;
    }();
    return library;
}

FreeTypeFace OpenFace(const FontFile& font)
{
    FT_Face face = nullptr;
    if (FT_New_Face(GetFreeType(), font.path.c_str(), font.index, &face) != 0) return nullptr;
    return FreeTypeFace(face);
}

void CloseFace(void* face)
{
    (void)FT_Done_Face(static_cast<FT_Face>(face));  // can't fail for an open face
}

void Check(cairo_status_t status)
{
    if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
}

CairoFace MakeFace(const FontFile& font)
{
    static const cairo_user_data_key_t key = {};
    FreeTypeFace face = OpenFace(font);
    if (!face) throw std::runtime_error(font.path + ": is not a readable font file");
    CairoFace made(cairo_ft_font_face_create_for_ft_face(face.get(), 0));
    Check(cairo_font_face_status(made.get()));
    // cairo closes the face when it removes it from its cache.
    Check(cairo_font_face_set_user_data(made.get(), &key, face.get(), CloseFace));
    (void)face.release();  // owned by cairo now
    return made;
}

cairo_status_t Append(void* closure, const unsigned char* data, unsigned length)
{
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void Draw(cairo_surface_t* surface, const std::vector<TextBlock>& blocks)
{
    const Context context(cairo_create(surface));
    for (const TextBlock& block : blocks) {
        const CairoFace face = MakeFace(block.font);
        cairo_set_font_face(context.get(), face.get());
        for (const TextLine& line : block.lines) {
            cairo_set_font_size(context.get(), line.size);
            cairo_move_to(context.get(), line.x, line.y);
            cairo_show_text(context.get(), base::ToValidUtf8(line.words).c_str());
        }
    }
    cairo_show_page(context.get());
    Check(cairo_status(context.get()));
    cairo_surface_finish(surface);
    Check(cairo_surface_status(surface));
}

}  // namespace

TextLine PlaceLine(size_t number, const std::string& words, double width, double height)
{
    constexpr double kSize = 14;
    constexpr double kFirst = 1.2;  // first baseline, in multiples of the size
    constexpr double kStep = 1.5;
    const double size = std::min(kSize, height / 2);
    const double room = std::max(0.0, height - kFirst * size);
    const size_t lines = 1 + static_cast<size_t>(room / (kStep * size));
    const double y = size * (kFirst + kStep * static_cast<double>(number % lines));
    return {words, width * 0.05, y, size};
}

bool CanDrawWith(const FontFile& font)
{
    const FreeTypeFace face = OpenFace(font);
    return face && FT_IS_SCALABLE(face.get());
}

std::string DrawTextAsPdf(double width, double height, const std::vector<TextBlock>& blocks)
{
    std::string bytes;
    const Surface surface(cairo_pdf_surface_create_for_stream(Append, &bytes, width, height));
    Draw(surface.get(), blocks);
    return bytes;
}

std::string DrawTextAsEps(double width, double height, const std::vector<TextBlock>& blocks)
{
    std::string bytes;
    const Surface surface(cairo_ps_surface_create_for_stream(Append, &bytes, width, height));
    cairo_ps_surface_set_eps(surface.get(), 1);
    Draw(surface.get(), blocks);
    return bytes;
}

}  // namespace documents
