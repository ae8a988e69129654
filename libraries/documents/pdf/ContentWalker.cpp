#include "documents/pdf/ContentWalker.h"

#include <qpdf/QPDFPageObjectHelper.hh>
#include <utility>

#include "documents/bytes/ReadBudget.h"
#include "documents/pdf/InlineImage.h"
#include "documents/pdf/PdfDescription.h"
#include "documents/pdf/PdfDictionary.h"

namespace documents {

namespace {

constexpr size_t kMaximumSaves = 65536;
constexpr size_t kMinimumWork = 256;  // what an empty stream costs, in bytes
constexpr long long kHiddenFlag = 2;
constexpr size_t kMostTextBytes = 1024;  // of one operator, for the words

// Returns the stream of an annotation's normal appearance in its present state; null if there is
// none or the annotation is hidden.
QPDFObjectHandle GetAppearance(QPDFObjectHandle annotation)
{
    QPDFObjectHandle flags = GetKeyOrNull(annotation, "/F");
    if (flags.isInteger() && (flags.getIntValue() & kHiddenFlag) != 0) {
        return QPDFObjectHandle::newNull();
    }
    QPDFObjectHandle appearance = GetKeyOrNull(GetKeyOrNull(annotation, "/AP"), "/N");
    if (appearance.isDictionary()) {
        QPDFObjectHandle state = GetKeyOrNull(annotation, "/AS");
        if (!state.isName()) return QPDFObjectHandle::newNull();
        appearance = GetKeyOrNull(appearance, state.getName());
    }
    return appearance;
}

}  // namespace

ContentWalker::ContentWalker(PdfFile& file, const Limits& limits, DocumentBuilder& builder)
    : mFile(file), mLimits(limits), mBuilder(builder)
{
}

void ContentWalker::WalkPage(QPDFObjectHandle page)
{
    QPDFObjectHandle dictionary =
        QPDFPageObjectHelper(page).getAttribute("/Resources", /*copy_if_shared=*/false);
    PdfResources resources(dictionary, mFonts, ++mResourceCount);
    ByteBuffer content;
    for (const QPDFObjectHandle& stream : page.getPageContents()) {
        mFile.AppendStream(stream, content);
        content.AppendTaken("\n");
    }
    Walk(content.GetView(), resources, nullptr, 0);
    QPDFObjectHandle annotations = page.getKey("/Annots");
    if (!annotations.isArray()) return;
    for (int index = 0; index < annotations.getArrayNItems(); ++index) {
        WalkAnnotation(annotations.getArrayItem(index), resources);
    }
}

void ContentWalker::WalkAnnotation(QPDFObjectHandle annotation, PdfResources& resources)
{
    WalkForm(GetAppearance(annotation), resources, nullptr, 1);
}

void ContentWalker::TakeWork(size_t bytes)
{
    ReadBudget::Take(0);
    mWork += bytes + kMinimumWork;
    if (mWork > mLimits.inflatedBytes) {
        throw LimitExceeded("too large: has more than " +
                            std::to_string(mLimits.inflatedBytes >> 20) + " MiB of content");
    }
}

void ContentWalker::Walk(std::string_view content, PdfResources& resources, const PdfFont* font,
                         size_t depth)
{
    TakeWork(content.size());
    ContentLexer lexer(content);
    State state{resources, depth, font, {}, 0, {}, {}, 0, {}};
    size_t nesting = 0;
    for (Token token = lexer.Next(); token.type != TokenType::kEnd; token = lexer.Next()) {
        switch (token.type) {
            case TokenType::kName:
                if (nesting == 0) state.name = token.text;
                break;
            case TokenType::kString:
                state.stringBytes += token.length;
                if (mLimits.hasDetails && state.text.size() < kMostTextBytes) {
                    state.text += DecodeString({token.type, token.text.substr(0, kMostTextBytes),
                                                token.length, token.isHex});
                }
                break;
            case TokenType::kArrayOpen:
            case TokenType::kDictionaryOpen:
                ++nesting;
                break;
            case TokenType::kArrayClose:
            case TokenType::kDictionaryClose:
                if (nesting > 0) --nesting;
                break;
            case TokenType::kOperator:
                // These are values, not operators.
                if (token.text == "true" || token.text == "false" || token.text == "null") break;
                Execute(token.text, state, lexer);
                state.name = {};
                state.stringBytes = 0;
                state.text.clear();
                nesting = 0;
                break;
            default:
                break;
        }
    }
    EndFrame(state);
}

void ContentWalker::Execute(std::string_view operation, State& state, ContentLexer& lexer)
{
    if (operation == "Tf" || operation == "gs" || operation == "Do" || operation == "scn" ||
        operation == "SCN") {
        ++mLookups;
    }
    if (operation == "Tj" || operation == "TJ" || operation == "'" || operation == "\"") {
        ShowText(state);
    } else if (operation == "Tf") {
        state.font = state.resources.FindFont(state.name);
        if (state.font == nullptr) ++mUnknownFonts;
    } else if (operation == "ET") {
        EndFrame(state);
    } else if (operation == "q") {
        Save(state);
    } else if (operation == "Q") {
        Restore(state);
    } else if (operation == "gs") {
        ApplyGraphicsState(state);
    } else if (operation == "Do") {
        Draw(state);
    } else if (operation == "scn" || operation == "SCN") {
        SetPattern(state);
    } else if (operation == "BI") {
        SkipInlineImage(lexer);
    }
}

void ContentWalker::Save(State& state)
{
    if (state.saved.size() < kMaximumSaves) {
        state.saved.push_back(state.font);
    } else {
        ++state.savedBeyond;
    }
}

void ContentWalker::Restore(State& state)
{
    if (state.savedBeyond > 0) {
        --state.savedBeyond;
    } else if (!state.saved.empty()) {
        state.font = state.saved.back();
        state.saved.pop_back();
    }
}

void ContentWalker::ShowText(State& state)
{
    if (state.stringBytes == 0 || state.font == nullptr) return;
    if (state.font->isType3) WalkGlyphs(*state.font, state);
    if (!state.font->isNamed) return;
    if (mLimits.hasDetails) AddWords(state);
    const size_t codeBytes = state.font->codeBytes;
    const size_t length = (state.stringBytes + codeBytes - 1) / codeBytes;
    if (!state.runs.empty() && state.runs.back().postScriptName == state.font->name) {
        state.runs.back().length += length;
        return;
    }
    if (state.runs.size() >= DocumentBuilder::kMaximumRuns) EndFrame(state);
    state.runs.push_back({state.font->name, length});
}

void ContentWalker::AddWords(const State& state)
{
    const PdfFont& font = *state.font;
    if (mBuilder.HasWords(font.name)) return;
    auto place = mTexts.find(&font);
    if (place == mTexts.end()) {
        ToUnicode texts;
        if (QPDFObjectHandle(font.toUnicode).isStream()) {
            ByteBuffer map;
            mFile.AppendStream(font.toUnicode, map);
            texts = ToUnicode(map.GetView());
        }
        place = mTexts.emplace(&font, std::move(texts)).first;
    }
    mBuilder.AddWords(font.name, place->second.Decode(state.text, font.codeBytes));
}

void ContentWalker::WalkGlyphs(const PdfFont& font, State& state)
{
    if (mFontsWithoutResources.count(&font) != 0) return;
    QPDFObjectHandle glyphs = GetKeyOrNull(font.dictionary, "/CharProcs");
    QPDFObjectHandle dictionary = GetKeyOrNull(font.dictionary, "/Resources");
    const bool inherits = !dictionary.isDictionary();
    const size_t outerId = inherits ? state.resources.GetId() : 0;
    if (!glyphs.isDictionary() || !mWalkedFonts.emplace(&font, outerId).second) return;
    const size_t lookups = mLookups;
    PdfResources own(dictionary, mFonts, ++mResourceCount);
    for (const auto& [name, glyph] : glyphs.getDictAsMap()) {
        WalkForm(glyph, inherits ? state.resources : own, nullptr, state.depth + 1);
    }
    if (lookups == mLookups) mFontsWithoutResources.insert(&font);
}

void ContentWalker::EndFrame(State& state)
{
    if (!state.runs.empty()) mBuilder.AddFrameWithStory(std::move(state.runs));
    state.runs.clear();
}

void ContentWalker::ApplyGraphicsState(State& state)
{
    QPDFObjectHandle parameters = state.resources.Find("/ExtGState", state.name);
    QPDFObjectHandle font = GetKeyOrNull(parameters, "/Font");
    if (font.isArray() && font.getArrayNItems() > 0) {
        state.font = mFonts.Get(font.getArrayItem(0));
    }
    QPDFObjectHandle mask = GetKeyOrNull(GetKeyOrNull(parameters, "/SMask"), "/G");
    WalkForm(mask, state.resources, state.font, state.depth + 1);
}

void ContentWalker::Draw(State& state)
{
    QPDFObjectHandle object = state.resources.Find("/XObject", state.name);
    if (!object.isStream()) return;
    std::string file = GetExternalFile(object.getDict());
    if (!file.empty()) mLinkedFiles.push_back(std::move(file));
    QPDFObjectHandle type = object.getDict().getKey("/Subtype");
    if (type.isName() && type.getName() == "/Form") {
        WalkForm(object, state.resources, state.font, state.depth + 1);
    }
}

void ContentWalker::SetPattern(State& state)
{
    if (state.name.empty()) return;
    // WalkForm ignores shading patterns, which are dictionaries and not streams.
    WalkForm(state.resources.Find("/Pattern", state.name), state.resources, nullptr,
             state.depth + 1);
}

void ContentWalker::WalkForm(QPDFObjectHandle form, PdfResources& outer, const PdfFont* font,
                             size_t depth)
{
    if (!form.isStream()) return;
    if (depth > mLimits.nesting) {
        mTooDeep = true;
        return;
    }
    QPDFObjectHandle dictionary = form.getDict().getKey("/Resources");
    const bool inherits = !dictionary.isDictionary();
    if (!mWalkedForms.emplace(form.getObjGen(), font, inherits ? outer.GetId() : 0).second) return;
    ByteBuffer content;
    mFile.AppendStream(form, content);
    if (inherits) {
        Walk(content.GetView(), outer, font, depth);
    } else {
        PdfResources resources(dictionary, mFonts, ++mResourceCount);
        Walk(content.GetView(), resources, font, depth);
    }
}

std::vector<std::string> ContentWalker::GetNotes() const
{
    std::vector<std::string> notes;
    if (mUnknownFonts > 0) notes.emplace_back("text asks for fonts that the page doesn't define");
    if (mTooDeep) notes.emplace_back("objects drawn within objects are nested too deeply");
    return notes;
}

}  // namespace documents
