#pragma once

#include <string>

#include "docfonts/report/DocumentReport.h"

// Documents as docfonts reports them, with fonts of this machine: a studio's job, in which most is
// here and some is not.
namespace samplereport {

inline const std::string kDejaVu = "/usr/share/fonts/truetype/dejavu/";
inline const std::string kUrw = "/usr/share/fonts/opentype/urw-base35/";

inline docfonts::UsedFont MakeFont(const std::string& name, const std::string& file,
                                   const std::string& words)
{
    docfonts::UsedFont font;
    font.postScriptName = name;
    font.family = name.substr(0, name.find('-'));
    font.style = name.find('-') == std::string::npos ? "" : name.substr(name.find('-') + 1);
    font.state = file.empty() ? docfonts::FontState::kMissing : docfonts::FontState::kInstalled;
    font.file = file;
    font.frames = 3;
    font.runs = 12;
    font.characters = 1438;
    font.embedding = docfonts::Embedding::kSubset;
    font.words = words;
    return font;
}

inline docfonts::DocumentReport MakePoster()
{
    docfonts::DocumentReport poster;
    poster.path = "Jobs/Autumn/Poster A1.ai";
    poster.format = "ai";
    poster.fonts = {
        MakeFont("C059-Italic", kUrw + "C059-Italic.otf",
                 "An evening of chamber music in the old brewery. Schubert, Hensel, Ravel; "
                 "doors open at seven, and the first hundred guests get a glass of elderflower."),
        MakeFont("URWGothic-Demi", kUrw + "URWGothic-Demi.otf", "Autumn Nights 2026"),
        MakeFont("Garamond-Swash", "", "Quintet & Friends"),
    };
    poster.fonts[1].state = docfonts::FontState::kInLibrary;
    poster.placed = {
        {"Links/brewery.psd", docfonts::PlacedState::kFound, "Links/brewery.psd"},
        {"/Volumes/Server/logo.eps", docfonts::PlacedState::kMoved, "Jobs/Autumn/logo.eps"},
        {"Links/sponsor.pdf", docfonts::PlacedState::kMissing, ""}};
    docfonts::DocumentReport logo;
    logo.path = "Jobs/Autumn/logo.eps";
    logo.format = "eps";
    logo.fonts = {MakeFont("Z003-MediumItalic", kUrw + "Z003-MediumItalic.otf", "Old Brewery")};
    poster.placedDocuments = {logo};
    return poster;
}

inline docfonts::DocumentReport MakeLeaflet()
{
    docfonts::DocumentReport leaflet;
    leaflet.path = "Jobs/Autumn/Leaflet.pdf";
    leaflet.format = "pdf";
    leaflet.fonts = {
        MakeFont("P052-Roman", kUrw + "P052-Roman.otf",
                 "Programme of the autumn concerts, with notes on each work and its composer."),
        MakeFont("DejaVuSerif-Bold", kDejaVu + "DejaVuSerif-Bold.ttf",
                 "Осенние вечера · Φθινόπωρο · 漢字"),
        MakeFont("DejaVuSansMono-Oblique", kDejaVu + "DejaVuSansMono-Oblique.ttf",
                 "EAN 978-3-16-148410-0")};
    leaflet.fonts[2].embedding = docfonts::Embedding::kNo;
    return leaflet;
}

inline docfonts::DocumentReport MakeTickets()
{
    docfonts::DocumentReport tickets;
    tickets.path = "Jobs/Autumn/Tickets.eps";
    tickets.format = "eps";
    tickets.fonts = {
        MakeFont("NimbusSans-Black", kUrw + "NimbusSans-Bold.otf", "Admit one. Row 7, seat 21"),
        MakeFont("Garamond-Swash", "", "Autumn Nights")};
    tickets.fonts[0].state = docfonts::FontState::kOtherStyle;
    tickets.fonts[0].otherStyle = "NimbusSans-Bold";
    tickets.fonts[0].characters = 0;
    return tickets;
}

inline docfonts::DocumentReport MakeUnread()
{
    docfonts::DocumentReport unread;
    unread.path = "Jobs/Autumn/Old proof.ai";
    unread.format = "unknown";
    unread.error = "the file ends in the middle of the document";
    return unread;
}

// Its names and words try to become a part of the page.
inline docfonts::DocumentReport MakeHostile()
{
    const std::string evil =
        "</title></style></td></table></article><script>document.title='taken'</script>"
        "<img src=https://example.org/x onerror=\"document.title='taken'\">' "
        "onload='x\xE2\x80\xAE\x07";
    docfonts::DocumentReport hostile;
    hostile.path = hostile.format = evil;
    hostile.fonts = {MakeFont(evil, kDejaVu + "DejaVuSerif.ttf", evil), MakeFont(evil, "", evil)};
    hostile.placed = {{evil, docfonts::PlacedState::kMissing, ""}};
    docfonts::DocumentReport unread;
    unread.path = unread.error = evil;
    hostile.placedDocuments = {unread};
    return hostile;
}

}  // namespace samplereport
