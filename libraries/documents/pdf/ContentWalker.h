#pragma once

#include <cstddef>
#include <map>
#include <qpdf/QPDFObjGen.hh>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "documents/bytes/ByteBuffer.h"
#include "documents/model/DocumentBuilder.h"
#include "documents/model/Limits.h"
#include "documents/pdf/ContentLexer.h"
#include "documents/pdf/PdfFont.h"
#include "documents/pdf/PdfResources.h"
#include "documents/pdf/details/ToUnicode.h"

namespace documents {

// Collects the text that the pages of a PDF show.
//
// Each BT..ET becomes a frame with its own story. This is an approximation: many programs put
// several texts between BT and ET, or split one text. Consecutive strings in one font are one run.
// A font is used if a string that isn't empty is shown in it, in any rendering mode.
//
// Follows form XObjects, tiling patterns set as a colour, soft masks, and the appearances of
// annotations that aren't hidden, and all glyph procedures of a Type 3 font that a string is shown
// in. Ignores the default resources of interactive forms. Reads a form or glyph once, however often
// it is drawn.
template <class File>
class ContentWalker {
public:
    using Object = typename File::Object;

    ContentWalker(File& file, const Limits& limits, DocumentBuilder& builder);

    // Adds the text of a page to the builder. Throws LimitExceeded.
    void WalkPage(Object page);

    // The files that drawn XObjects refer to (OPI, reference XObjects, external data), one entry
    // per drawing.
    const std::vector<std::string>& GetLinkedFiles() const { return mLinkedFiles; }

    // What was missing or left out, one line each.
    std::vector<std::string> GetNotes() const;

private:
    using Font = PdfFont<Object>;
    using Resources = PdfResources<Object>;

    // The graphics state of a content stream, as far as it matters for text.
    struct State {
        Resources& resources;
        size_t depth;
        const Font* font;
        std::vector<const Font*> saved;
        size_t savedBeyond = 0;     // open "q" operators beyond the limit of `saved`
        std::vector<TextRun> runs;  // of the present frame
        // Operands since the last operator.
        std::string_view name;
        size_t stringBytes = 0;
        std::string text;  // in bytes; only with Limits::hasDetails, and only the start
    };

    void Walk(std::string_view content, Resources& resources, const Font* font, size_t depth);
    void Execute(std::string_view operation, State& state, ContentLexer& lexer);
    static void Save(State& state);
    static void Restore(State& state);
    void ShowText(State& state);
    void AddWords(const State& state);
    void WalkGlyphs(const Font& font, State& state);
    void EndFrame(State& state);
    void ApplyGraphicsState(State& state);
    void Draw(State& state);
    void SetPattern(State& state);
    void WalkAnnotation(Object annotation, Resources& resources);
    void WalkForm(Object form, Resources& outer, const Font* font, size_t depth);
    // Limits the content of all streams together. The ReadBudget doesn't: it includes neither
    // streams without a filter nor a cost per stream.
    void TakeWork(size_t bytes);

    // Contents are read into buffers that are used again: one for each form in a form.
    ByteBuffer TakeBuffer();
    void KeepBuffer(ByteBuffer buffer);

    File& mFile;
    const Limits& mLimits;
    DocumentBuilder& mBuilder;
    PdfFontTable<Object> mFonts;
    std::map<const Font*, ToUnicode> mTexts;
    // (form, font at its start, id of the resources that it inherits or 0 if it has its own): the
    // form's text depends on all three.
    std::set<std::tuple<QPDFObjGen, const Font*, size_t>> mWalkedForms;
    // (Type 3 font, id of the resources that it inherits or 0).
    std::set<std::pair<const Font*, size_t>> mWalkedFonts;
    std::set<const Font*> mFontsWithoutResources;  // their glyphs ask for none: walked once
    size_t mLookups = 0;                           // operators that ask for a resource
    size_t mResourceCount = 0;
    std::vector<ByteBuffer> mBuffers;
    std::vector<std::string> mLinkedFiles;
    size_t mWork = 0;
    size_t mUnknownFonts = 0;
    bool mTooDeep = false;
};

}  // namespace documents
