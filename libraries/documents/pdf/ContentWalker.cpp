#include "documents/pdf/ContentWalker.h"

#include <utility>

#include "documents/bytes/ReadBudget.h"
#include "documents/pdf/InlineImage.h"
#include "documents/pdf/PdfDescription.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/PdfFile.h"
#include "documents/pdf/quick/QuickFile.h"

namespace documents {

namespace {

constexpr size_t kMaximumSaves = 65536;
constexpr size_t kMinimumWork = 256;  // what an empty stream costs, in bytes
constexpr long long kHiddenFlag = 2;
constexpr size_t kMostKeptBytes = size_t{1} << 20;
constexpr size_t kMostTextBytes = 1024;  // of one operator, for the words

// The name of an operator as a number; 0 for a name that is longer than those that matter.
constexpr uint32_t GetOperatorCode(std::string_view name)
{
    constexpr size_t kLongest = 3;
    uint32_t code = 0;
    if (name.size() > kLongest) return code;
    for (const char c : name) code = code << 8 | static_cast<unsigned char>(c);
    return code;
}

// Returns the stream of an annotation's normal appearance in its present state; null if there is
// none or the annotation is hidden.
template <class Object>
Object GetAppearance(Object annotation)
{
    Object flags = GetKeyOrNull(annotation, "/F");
    if (flags.isInteger() && (flags.getIntValue() & kHiddenFlag) != 0) {
        return Object::newNull();
    }
    Object appearance = GetKeyOrNull(GetKeyOrNull(annotation, "/AP"), "/N");
    if (appearance.isDictionary()) {
        Object state = GetKeyOrNull(annotation, "/AS");
        if (!state.isName()) return Object::newNull();
        appearance = GetKeyOrNull(appearance, state.getName());
    }
    return appearance;
}

}  // namespace

template <class File>
ContentWalker<File>::ContentWalker(File& file, const Limits& limits, DocumentBuilder& builder)
    : mFile(file), mLimits(limits), mBuilder(builder)
{
}

template <class File>
void ContentWalker<File>::WalkPage(Object page)
{
    Object dictionary = File::GetResources(page);
    Resources resources(dictionary, mFonts, ++mResourceCount);
    ByteBuffer content = TakeBuffer();
    for (const Object& stream : File::GetContents(page)) {
        mFile.AppendStream(stream, content);
        content.AppendTaken("\n");
    }
    Walk(content.GetView(), resources, nullptr, 0);
    KeepBuffer(std::move(content));
    Object annotations = page.getKey("/Annots");
    if (!annotations.isArray()) return;
    for (int index = 0; index < annotations.getArrayNItems(); ++index) {
        WalkAnnotation(annotations.getArrayItem(index), resources);
    }
}

template <class File>
void ContentWalker<File>::WalkAnnotation(Object annotation, Resources& resources)
{
    WalkForm(GetAppearance(annotation), resources, nullptr, 1);
}

template <class File>
void ContentWalker<File>::TakeWork(size_t bytes)
{
    ReadBudget::Take(0);
    mWork += bytes + kMinimumWork;
    if (mWork > mLimits.inflatedBytes) {
        throw LimitExceeded("too large: has more than " +
                            std::to_string(mLimits.inflatedBytes >> 20) + " MiB of content");
    }
}

template <class File>
void ContentWalker<File>::Walk(std::string_view content, Resources& resources, const Font* font,
                               size_t depth)
{
    TakeWork(content.size());
    ContentLexer lexer(content);
    State state{resources, depth, font, {}, 0, {}, {}, 0, {}};
    size_t nesting = 0;
    for (Token token = lexer.NextButNumber(); token.type != TokenType::kEnd;
         token = lexer.NextButNumber()) {
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
                if (token.text.size() >= 4 &&
                    (token.text == "true" || token.text == "false" || token.text == "null")) {
                    break;
                }
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

template <class File>
void ContentWalker<File>::Execute(std::string_view operation, State& state, ContentLexer& lexer)
{
    switch (GetOperatorCode(operation)) {
        case GetOperatorCode("Tj"):
        case GetOperatorCode("TJ"):
        case GetOperatorCode("'"):
        case GetOperatorCode("\""):
            ShowText(state);
            break;
        case GetOperatorCode("Tf"):
            ++mLookups;
            state.font = state.resources.FindFont(state.name);
            if (state.font == nullptr) ++mUnknownFonts;
            break;
        case GetOperatorCode("ET"):
            EndFrame(state);
            break;
        case GetOperatorCode("q"):
            Save(state);
            break;
        case GetOperatorCode("Q"):
            Restore(state);
            break;
        case GetOperatorCode("gs"):
            ++mLookups;
            ApplyGraphicsState(state);
            break;
        case GetOperatorCode("Do"):
            ++mLookups;
            Draw(state);
            break;
        case GetOperatorCode("scn"):
        case GetOperatorCode("SCN"):
            ++mLookups;
            SetPattern(state);
            break;
        case GetOperatorCode("BI"):
            SkipInlineImage(lexer);
            break;
        default:
            break;
    }
}

template <class File>
void ContentWalker<File>::Save(State& state)
{
    if (state.saved.size() < kMaximumSaves) {
        state.saved.push_back(state.font);
    } else {
        ++state.savedBeyond;
    }
}

template <class File>
void ContentWalker<File>::Restore(State& state)
{
    if (state.savedBeyond > 0) {
        --state.savedBeyond;
    } else if (!state.saved.empty()) {
        state.font = state.saved.back();
        state.saved.pop_back();
    }
}

template <class File>
void ContentWalker<File>::ShowText(State& state)
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

template <class File>
void ContentWalker<File>::AddWords(const State& state)
{
    const Font& font = *state.font;
    if (mBuilder.HasWords(font.name)) return;
    auto place = mTexts.find(&font);
    if (place == mTexts.end()) {
        ToUnicode texts;
        if (Object(font.toUnicode).isStream()) {
            ByteBuffer map;
            mFile.AppendStream(font.toUnicode, map);
            texts = ToUnicode(map.GetView());
        }
        place = mTexts.emplace(&font, std::move(texts)).first;
    }
    mBuilder.AddWords(font.name, place->second.Decode(state.text, font.codeBytes));
}

template <class File>
void ContentWalker<File>::WalkGlyphs(const Font& font, State& state)
{
    if (mFontsWithoutResources.count(&font) != 0) return;
    Object glyphs = GetKeyOrNull(font.dictionary, "/CharProcs");
    Object dictionary = GetKeyOrNull(font.dictionary, "/Resources");
    const bool inherits = !dictionary.isDictionary();
    const size_t outerId = inherits ? state.resources.GetId() : 0;
    if (!glyphs.isDictionary() || !mWalkedFonts.emplace(&font, outerId).second) return;
    const size_t lookups = mLookups;
    Resources own(dictionary, mFonts, ++mResourceCount);
    for (const std::string& name : glyphs.getKeys()) {
        WalkForm(glyphs.getKey(name), inherits ? state.resources : own, nullptr, state.depth + 1);
    }
    if (lookups == mLookups) mFontsWithoutResources.insert(&font);
}

template <class File>
void ContentWalker<File>::EndFrame(State& state)
{
    if (!state.runs.empty()) mBuilder.AddFrameWithStory(std::move(state.runs));
    state.runs.clear();
}

template <class File>
void ContentWalker<File>::ApplyGraphicsState(State& state)
{
    Object parameters = state.resources.Find("/ExtGState", state.name);
    Object font = GetKeyOrNull(parameters, "/Font");
    if (font.isArray() && font.getArrayNItems() > 0) {
        state.font = mFonts.Get(font.getArrayItem(0));
    }
    Object mask = GetKeyOrNull(GetKeyOrNull(parameters, "/SMask"), "/G");
    WalkForm(mask, state.resources, state.font, state.depth + 1);
}

template <class File>
void ContentWalker<File>::Draw(State& state)
{
    Object object = state.resources.Find("/XObject", state.name);
    if (!object.isStream()) return;
    std::string file = GetExternalFile(object.getDict());
    if (!file.empty()) mLinkedFiles.push_back(std::move(file));
    Object type = object.getDict().getKey("/Subtype");
    if (type.isName() && type.getName() == "/Form") {
        WalkForm(object, state.resources, state.font, state.depth + 1);
    }
}

template <class File>
void ContentWalker<File>::SetPattern(State& state)
{
    if (state.name.empty()) return;
    // WalkForm ignores shading patterns, which are dictionaries and not streams.
    WalkForm(state.resources.Find("/Pattern", state.name), state.resources, nullptr,
             state.depth + 1);
}

template <class File>
void ContentWalker<File>::WalkForm(Object form, Resources& outer, const Font* font, size_t depth)
{
    if (!form.isStream()) return;
    if (depth > mLimits.nesting) {
        mTooDeep = true;
        return;
    }
    Object dictionary = form.getDict().getKey("/Resources");
    const bool inherits = !dictionary.isDictionary();
    if (!mWalkedForms.emplace(form.getObjGen(), font, inherits ? outer.GetId() : 0).second) return;
    ByteBuffer content = TakeBuffer();
    mFile.AppendStream(form, content);
    if (inherits) {
        Walk(content.GetView(), outer, font, depth);
    } else {
        Resources resources(dictionary, mFonts, ++mResourceCount);
        Walk(content.GetView(), resources, font, depth);
    }
    KeepBuffer(std::move(content));
}

template <class File>
ByteBuffer ContentWalker<File>::TakeBuffer()
{
    if (mBuffers.empty()) return {};
    ByteBuffer buffer = std::move(mBuffers.back());
    mBuffers.pop_back();
    return buffer;
}

template <class File>
void ContentWalker<File>::KeepBuffer(ByteBuffer buffer)
{
    if (buffer.GetSize() > kMostKeptBytes) return;
    buffer.Truncate(0);
    mBuffers.push_back(std::move(buffer));
}

template <class File>
std::vector<std::string> ContentWalker<File>::GetNotes() const
{
    std::vector<std::string> notes;
    if (mUnknownFonts > 0) notes.emplace_back("text asks for fonts that the page doesn't define");
    if (mTooDeep) notes.emplace_back("objects drawn within objects are nested too deeply");
    return notes;
}

template class ContentWalker<PdfFile>;
template class ContentWalker<QuickFile>;

}  // namespace documents
