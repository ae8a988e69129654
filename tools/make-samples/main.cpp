// make-samples OUTPUT_FOLDER DEJAVU_FOLDER LIBRARY_FONT
//     Writes the sample documents with the DejaVu fonts of a folder and the font file LIBRARY_FONT.
//     The same font files give the same bytes at every run.
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>

#include "DrawSample.h"
#include "EpsSample.h"
#include "NativeSample.h"
#include "PdfSample.h"

namespace {

struct Fonts {
    std::string sans;
    std::string bold;
    std::string mono;
    std::string library;  // a font that is not installed on users' machines
};

void Write(const std::string& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << bytes;
    file.close();
    if (!file) throw std::runtime_error(path + ": cannot be written");
}

std::string MakeBusinessCard(const Fonts& fonts)
{
    const SamplePage page{240,
                          140,
                          {{fonts.library, "Jo Miller", 24, 20, 45},
                           {fonts.bold, "Engraver", 12, 20, 70},
                           {fonts.sans, "12 Mill Lane, Kingsbridge", 9, 20, 110, 1}}};
    const std::vector<std::string> placed = {"leaflet.eps"};
    return FinishPdf(DrawPdf(page),
                     {"Business card", placed, {}, MakeNativePart(page, placed, Packing::kZlib)});
}

std::string MakeLetterhead(const Fonts& fonts)
{
    const SamplePage page{595,
                          842,
                          {{fonts.bold, "Miller & Daughters", 18, 60, 60},
                           {fonts.library, "Engravers since 1903", 12, 60, 85}}};
    const std::vector<std::string> placed = {"business-card.ai", "business-card.ai"};
    return FinishPdf(DrawPdf(page),
                     {"Letterhead", placed, {}, MakeNativePart(page, placed, Packing::kZstandard)});
}

std::string MakeMissingFont(const Fonts& fonts)
{
    const SamplePage page{
        300,
        100,
        {{fonts.sans, "Set in a font", 14, 20, 40}, {fonts.mono, "nobody has", 14, 20, 70}}};
    return FinishPdf(
        DrawPdf(page),
        {"A missing font", {}, {{GetPostScriptName(fonts.mono), "NoSuchFace-Regular"}}, {}});
}

std::string MakeLeaflet(const Fonts& fonts)
{
    const SamplePage page{
        200,
        150,
        {{fonts.sans, "Open day", 18, 20, 40}, {fonts.mono, "Saturday, 10:00", 10, 20, 70}}};
    return FinishEps(DrawEps(page), {{GetPostScriptName(fonts.sans), GetPostScriptName(fonts.mono)},
                                     {"missing-font.pdf"}});
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc != 4) {
        std::fprintf(stderr, "usage: make-samples OUTPUT_FOLDER DEJAVU_FOLDER LIBRARY_FONT\n");
        return 2;
    }
    try {
        const std::string output = argv[1];
        const std::string dejavu = argv[2];
        const Fonts fonts{dejavu + "/DejaVuSans.ttf", dejavu + "/DejaVuSerif-Bold.ttf",
                          dejavu + "/DejaVuSansMono.ttf", argv[3]};
        Write(output + "/business-card.ai", MakeBusinessCard(fonts));
        Write(output + "/letterhead.ait", MakeLetterhead(fonts));
        Write(output + "/missing-font.pdf", MakeMissingFont(fonts));
        Write(output + "/leaflet.eps", MakeLeaflet(fonts));
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "make-samples: %s\n", exception.what());
        return 1;
    }
    return 0;
}
