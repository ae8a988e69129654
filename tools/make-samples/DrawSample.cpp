#include "DrawSample.h"

#include <cairo-ft.h>
#include <cairo-pdf.h>
#include <cairo-ps.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>
#include <stdexcept>

namespace {

// Fixed, so that every run writes the same bytes.
constexpr char kDate[] = "2024-01-01T00:00:00Z";

template <auto Release>
struct Releaser {
    template <class T>
    void operator()(T* object) const
    {
        Release(object);
    }
};

using Surface = std::unique_ptr<cairo_surface_t, Releaser<cairo_surface_destroy>>;
using Context = std::unique_ptr<cairo_t, Releaser<cairo_destroy>>;
using FontFace = std::unique_ptr<cairo_font_face_t, Releaser<cairo_font_face_destroy>>;

class FreeType {
public:
    FreeType()
    {
        if (FT_Init_FreeType(&mLibrary) != 0) throw std::runtime_error("no FreeType");
    }
    ~FreeType() { (void)FT_Done_FreeType(mLibrary); }  // nothing to do about an error at exit
    FreeType(const FreeType&) = delete;
    FreeType& operator=(const FreeType&) = delete;

    FT_Face Open(const std::string& file)
    {
        FT_Face face = nullptr;
        if (FT_New_Face(mLibrary, file.c_str(), 0, &face) != 0) {
            throw std::runtime_error(file + ": cannot be read as a font");
        }
        return face;
    }

private:
    FT_Library mLibrary = nullptr;
};

// cairo keeps faces after the page that uses them, so the library lives as long as the process.
FreeType& GetFreeType()
{
    static FreeType library;
    return library;
}

cairo_status_t Append(void* closure, const unsigned char* data, unsigned length)
{
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void Check(cairo_status_t status)
{
    if (status != CAIRO_STATUS_SUCCESS) throw std::runtime_error(cairo_status_to_string(status));
}

void DrawLines(cairo_surface_t* surface, const SamplePage& page)
{
    const Context context(cairo_create(surface));
    for (const SampleLine& line : page.lines) {
        const FontFace face(
            cairo_ft_font_face_create_for_ft_face(GetFreeType().Open(line.fontFile), 0));
        cairo_set_font_face(context.get(), face.get());
        cairo_set_font_size(context.get(), line.size);
        cairo_move_to(context.get(), line.x, line.y);
        cairo_show_text(context.get(), line.text.c_str());
    }
    cairo_show_page(context.get());
    Check(cairo_status(context.get()));
}

}  // namespace

std::string DrawPdf(const SamplePage& page)
{
    std::string bytes;
    const Surface surface(
        cairo_pdf_surface_create_for_stream(Append, &bytes, page.width, page.height));
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, kDate);
    DrawLines(surface.get(), page);
    cairo_surface_finish(surface.get());
    Check(cairo_surface_status(surface.get()));
    return bytes;
}

std::string DrawEps(const SamplePage& page)
{
    std::string bytes;
    const Surface surface(
        cairo_ps_surface_create_for_stream(Append, &bytes, page.width, page.height));
    cairo_ps_surface_set_eps(surface.get(), 1);
    DrawLines(surface.get(), page);
    cairo_surface_finish(surface.get());
    Check(cairo_surface_status(surface.get()));
    return bytes;
}

std::string GetPostScriptName(const std::string& fontFile)
{
    FT_Face face = GetFreeType().Open(fontFile);
    const char* name = FT_Get_Postscript_Name(face);
    std::string result = name == nullptr ? "" : name;
    (void)FT_Done_Face(face);  // fails only for an invalid face
    if (result.empty()) throw std::runtime_error(fontFile + ": no PostScript name");
    return result;
}
