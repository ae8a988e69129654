#pragma once

#include <cstddef>
#include <qpdf/QPDFObjectHandle.hh>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "ContentLexer.h"
#include "DocumentBuilder.h"
#include "Limits.h"
#include "PdfFile.h"
#include "PdfFont.h"
#include "PdfResources.h"

namespace documents {

// Collects the text that the pages of a PDF show.
//
// One BT..ET is one frame with a story of its own, an approximation: programs other than
// illustration programs put many texts between BT and ET, or one text into many. Strings that
// follow each other in one font are one run. A font counts when a string that isn't empty is shown
// in it, whatever the rendering mode. Followed are form XObjects, tiling patterns that are set as a
// colour, soft masks and the appearances of annotations that aren't hidden; not followed are the
// glyphs of Type 3 fonts and the default resources of forms to fill in. A form that is drawn
// several times is read once.
class ContentWalker {
public:
    ContentWalker(PdfFile& file, const Limits& limits, DocumentBuilder& builder);

    // Throws LimitExceeded.
    void WalkPage(QPDFObjectHandle page);

    // Files that drawn XObjects refer to (OPI, reference XObjects, external data), by each drawing.
    const std::vector<std::string>& GetLinkedFiles() const { return mLinkedFiles; }

    // What the content asked for in vain, a line each.
    std::vector<std::string> GetNotes() const;

private:
    // Where one content stream stands.
    struct State {
        PdfResources& resources;
        size_t depth;
        const PdfFont* font;
        std::vector<const PdfFont*> saved;
        size_t savedBeyond = 0;  // saves that aren't kept any more
        std::vector<TextRun> runs;
        // Operands since the last operator.
        std::string_view name;
        size_t stringBytes = 0;
    };

    void Walk(std::string_view content, PdfResources& resources, const PdfFont* font, size_t depth);
    void Execute(std::string_view operation, State& state, ContentLexer& lexer);
    static void Save(State& state);
    static void Restore(State& state);
    void ShowText(State& state);
    void EndFrame(State& state);
    void ApplyGraphicsState(State& state);
    void Draw(State& state);
    void SetPattern(State& state);
    void WalkAnnotation(QPDFObjectHandle annotation, PdfResources& resources);
    void WalkForm(QPDFObjectHandle form, PdfResources& outer, const PdfFont* font, size_t depth);
    void TakeWork(size_t bytes);

    PdfFile& mFile;
    const Limits& mLimits;
    DocumentBuilder& mBuilder;
    PdfFontTable mFonts;
    // A form, the font that it begins with and, if it has no resources, the id of the ones that it
    // inherits, else 0.
    std::set<std::tuple<QPDFObjGen, const PdfFont*, size_t>> mWalkedForms;
    size_t mResourceCount = 0;
    std::vector<std::string> mLinkedFiles;
    size_t mWork = 0;
    size_t mUnknownFonts = 0;
    bool mTooDeep = false;
};

}  // namespace documents
