#include "documents/postscript/DscReader.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/Utf8.h"
#include "documents/model/DocumentBuilder.h"
#include "documents/model/FontName.h"
#include "documents/postscript/DscLines.h"

namespace documents {

namespace {

using Texts = std::vector<std::string>;

enum class Meaning {
    kNone,
    kFonts,              // a list of font names
    kSuppliedFonts,      // a list of names of fonts that the file contains
    kResources,          // a list of type words, each followed by names
    kSuppliedResources,  // the same, contained in the file
    kNeededResources,    // the same, not in the file: files among them are placed files
    kEmbeddedFont,       // the name of a font that the file contains
    kEmbeddedResource,   // the same with a type word
    kListedFile,         // a path
    kIncludedFile,       // a path, where the file is drawn
    kCreator,
};

Meaning GetMeaning(std::string_view keyword)
{
    constexpr std::pair<std::string_view, Meaning> kMeanings[] = {
        {"DocumentFonts", Meaning::kFonts},
        {"DocumentNeededFonts", Meaning::kFonts},
        {"DocumentSuppliedFonts", Meaning::kSuppliedFonts},
        {"PageFonts", Meaning::kFonts},
        {"IncludeFont", Meaning::kFonts},
        {"DocumentResources", Meaning::kResources},
        {"DocumentNeededResources", Meaning::kNeededResources},
        {"DocumentSuppliedResources", Meaning::kSuppliedResources},
        {"PageResources", Meaning::kResources},
        {"IncludeResource", Meaning::kNeededResources},
        {"BeginFont", Meaning::kEmbeddedFont},
        {"BeginResource", Meaning::kEmbeddedResource},
        {"DocumentFiles", Meaning::kListedFile},
        {"DocumentNeededFiles", Meaning::kListedFile},
        {"IncludeFile", Meaning::kIncludedFile},
        {"Creator", Meaning::kCreator},
    };
    for (const auto& [name, meaning] : kMeanings) {
        if (name == keyword) return meaning;
    }
    return Meaning::kNone;
}

// Texts in order, each once.
class UniqueTexts {
public:
    void Add(std::string text)
    {
        if (mSeen.insert(text).second) mTexts.push_back(std::move(text));
    }
    const Texts& Get() const { return mTexts; }

private:
    Texts mTexts;
    std::unordered_set<std::string> mSeen;
};

// The facts from all comments of a file.
class Comments {
public:
    explicit Comments(std::string_view bytes)
    {
        DscLines lines(bytes);
        DscComment comment;
        Meaning meaning = Meaning::kNone;
        while (lines.Next(comment)) {
            if (comment.keyword != "+") {
                meaning = GetMeaning(comment.keyword);
                mResourceType.clear();
            }
            if (!IsAtEnd(comment.value)) Take(meaning, comment.value);
        }
        isCutOff = lines.IsCutOff();
    }

    UniqueTexts fonts;
    UniqueTexts embeddedFonts;
    UniqueTexts listedFiles;
    Texts includedFiles;
    std::string creator;
    bool isCutOff = false;
    bool hasList = false;         // of fonts or resources, with or without names
    bool listsUsedFonts = false;  // a list names a font that it doesn't say is contained

    // All names, or if there are none those of embedded fonts.
    const Texts& GetFonts() const
    {
        return fonts.Get().empty() ? embeddedFonts.Get() : fonts.Get();
    }

private:
    void Take(Meaning meaning, std::string_view value)
    {
        switch (meaning) {
            case Meaning::kFonts:
            case Meaning::kSuppliedFonts:
                hasList = true;
                TakeFonts(value, meaning);
                break;
            case Meaning::kResources:
            case Meaning::kSuppliedResources:
            case Meaning::kNeededResources:
                hasList = true;
                TakeResources(value, meaning);
                break;
            case Meaning::kEmbeddedFont:
                TakeFirstFont(value);
                break;
            case Meaning::kEmbeddedResource:
                TakeResources(value, meaning);
                break;
            case Meaning::kListedFile:
                AddListedFile(value);
                break;
            case Meaning::kIncludedFile:
                TakeIncludedFile(value);
                break;
            case Meaning::kCreator:
                if (creator.empty()) creator = base::ToValidUtf8(GetDscText(value));
                break;
            case Meaning::kNone:
                break;
        }
    }

    void AddFont(std::string_view name, Meaning meaning)
    {
        if (name.substr(0, 1) == "/") name.remove_prefix(1);
        if (name.empty() || IsNameless(name)) return;
        const bool isEmbedded =
            meaning == Meaning::kEmbeddedFont || meaning == Meaning::kEmbeddedResource;
        const bool isSupplied = isEmbedded || meaning == Meaning::kSuppliedFonts ||
                                meaning == Meaning::kSuppliedResources;
        if (!isSupplied) listsUsedFonts = true;
        mLimit.Take(name.size());
        (isEmbedded ? embeddedFonts : fonts).Add(StripSubsetPrefix(name));
    }

    // "PDF Font obj_18" is a font that has no name in the PDF that this file was made from.
    static bool IsNameless(std::string_view name)
    {
        return name.substr(0, kNameless.size()) == kNameless;
    }

    // Skips such a name if it stands in a list without being a string.
    static void SkipNameless(std::string_view& value)
    {
        constexpr std::string_view kSpaces = " \t";
        for (;;) {
            value.remove_prefix(std::min(value.find_first_not_of(kSpaces), value.size()));
            if (!IsNameless(value)) return;
            const size_t end = value.find_first_of(kSpaces, kNameless.size());
            value.remove_prefix(std::min(end, value.size()));
        }
    }

    void TakeFonts(std::string_view value, Meaning meaning)
    {
        DscWord word;
        for (SkipNameless(value); TakeDscWord(value, word, kMostDscBytes); SkipNameless(value)) {
            AddFont(word.text, meaning);
        }
    }

    // A printer's name and a version may follow the name of the font.
    void TakeFirstFont(std::string_view value)
    {
        DscWord word;
        SkipNameless(value);
        if (TakeDscWord(value, word, kMostDscBytes)) AddFont(word.text, Meaning::kEmbeddedFont);
    }

    // A continuation line may omit the type word; the last one remains valid. Files that the
    // document contains are the driver's own (procedures, error handlers), with a version and a
    // revision behind the name.
    void TakeResources(std::string_view value, Meaning meaning)
    {
        constexpr std::string_view kTypes[] = {"font", "file",     "procset",
                                               "form", "encoding", "pattern"};
        DscWord word;
        for (SkipNameless(value); TakeDscWord(value, word, kMostDscBytes); SkipNameless(value)) {
            const bool isType = !word.quoted && std::find(std::begin(kTypes), std::end(kTypes),
                                                          word.text) != std::end(kTypes);
            if (isType) {
                mResourceType = word.text;
            } else if (mResourceType == "font") {
                AddFont(word.text, meaning);
            } else if (mResourceType == "file" && meaning == Meaning::kNeededResources) {
                AddListedFile(word.text);
            }
        }
    }

    void TakeIncludedFile(std::string_view value)
    {
        std::string file = GetDscPath(value);
        mLimit.Take(file.size());
        if (!file.empty()) includedFiles.push_back(std::move(file));
    }

    void AddListedFile(std::string_view value)
    {
        std::string file = GetDscPath(value);
        mLimit.Take(file.size());
        if (!file.empty()) listedFiles.Add(std::move(file));
    }

    static constexpr std::string_view kNameless = "PDF Font obj_";

    std::string mResourceType;
    DscNameLimit mLimit;
};

// Comments don't say where a font is used: one frame with one run of length 1 per font.
void AddFonts(const Texts& fonts, Document& document)
{
    std::vector<TextRun> runs;
    runs.reserve(fonts.size());
    for (const std::string& font : fonts) runs.push_back({font, 1});
    if (!runs.empty()) DocumentBuilder(document).AddFrameWithStory(std::move(runs));
}

}  // namespace

void DescribePostScript(std::string_view bytes, Document& document)
{
    Comments comments(bytes);
    const std::string_view firstLine = bytes.substr(0, bytes.find_first_of("\r\n"));
    const bool isEPS = firstLine.find("EPSF") != std::string_view::npos;
    const bool isIllustrator = comments.creator.find("Adobe Illustrator") != std::string::npos;
    document.kind = isIllustrator && !isEPS ? Kind::kIllustrator : Kind::kEPS;
    document.creator = std::move(comments.creator);
    document.linkedFiles = comments.includedFiles;
    const std::unordered_set<std::string> included(comments.includedFiles.begin(),
                                                   comments.includedFiles.end());
    for (const std::string& file : comments.listedFiles.Get()) {
        if (included.count(file) == 0) document.linkedFiles.push_back(file);
    }
    if (comments.isCutOff) document.notes.emplace_back("cut off within its data");
}

ReadResult ReadDscComments(const DocumentSource& source, const Limits& limits, Document& document)
{
    (void)limits;  // comments are neither compressed nor nested
    if (source.pdf != nullptr) return {};
    const Comments comments(source.postScript);
    if (comments.listsUsedFonts) {
        AddFonts(comments.GetFonts(), document);
        return {ReadStatus::kRead, {}};
    }
    if (!comments.GetFonts().empty()) {
        return {ReadStatus::kFailed, "its comments name only the fonts that it contains"};
    }
    if (comments.hasList) return {ReadStatus::kFailed, "its comments name no font"};
    return {};
}

ReadResult ReadSuppliedFonts(const DocumentSource& source, const Limits& limits, Document& document)
{
    (void)limits;  // as above
    if (source.pdf != nullptr) return {};
    AddFonts(Comments(source.postScript).GetFonts(), document);
    return {ReadStatus::kRead, {}};
}

bool HasFontComments(std::string_view postScript)
{
    return !Comments(postScript).GetFonts().empty();
}

}  // namespace documents
