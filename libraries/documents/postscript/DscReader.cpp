#include "documents/postscript/DscReader.h"

#include <algorithm>
#include <string>
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
    kFonts,             // a list of font names
    kResources,         // a list of type words, each followed by names
    kNeededResources,   // the same, not in the file: files among them are placed files
    kEmbeddedFont,      // the name of a font that the file contains
    kEmbeddedResource,  // the same with a type word
    kListedFile,        // a path
    kIncludedFile,      // a path, where the file is drawn
    kCreator,
};

Meaning GetMeaning(std::string_view keyword)
{
    constexpr std::pair<std::string_view, Meaning> kMeanings[] = {
        {"DocumentFonts", Meaning::kFonts},
        {"DocumentNeededFonts", Meaning::kFonts},
        {"DocumentSuppliedFonts", Meaning::kFonts},
        {"PageFonts", Meaning::kFonts},
        {"IncludeFont", Meaning::kFonts},
        {"DocumentResources", Meaning::kResources},
        {"DocumentNeededResources", Meaning::kNeededResources},
        {"DocumentSuppliedResources", Meaning::kResources},
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

void AddOnce(Texts& texts, std::string text)
{
    if (text.empty() || std::find(texts.begin(), texts.end(), text) != texts.end()) return;
    texts.push_back(std::move(text));
}

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

    Texts fonts;
    Texts embeddedFonts;
    Texts listedFiles;
    Texts includedFiles;
    std::string creator;
    bool isCutOff = false;
    bool listsFonts = false;

private:
    void Take(Meaning meaning, std::string_view value)
    {
        switch (meaning) {
            case Meaning::kFonts:
                listsFonts = true;
                TakeFonts(value, fonts);
                break;
            case Meaning::kResources:
            case Meaning::kNeededResources:
                listsFonts = true;
                TakeResources(value, fonts, meaning == Meaning::kNeededResources);
                break;
            case Meaning::kEmbeddedFont:
                TakeFirstFont(value);
                break;
            case Meaning::kEmbeddedResource:
                TakeResources(value, embeddedFonts, false);
                break;
            case Meaning::kListedFile:
                AddOnce(listedFiles, base::ToValidUtf8(GetDscText(value)));
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

    static void AddFont(const std::string& name, Texts& list)
    {
        const size_t slash = name.substr(0, 1) == "/" ? 1 : 0;
        AddOnce(list, base::ToValidUtf8(StripSubsetPrefix(name.substr(slash))));
    }

    static void TakeFonts(std::string_view value, Texts& list)
    {
        DscWord word;
        while (TakeDscWord(value, word)) AddFont(word.text, list);
    }

    // A printer's name and a version may follow the name of the font.
    void TakeFirstFont(std::string_view value)
    {
        DscWord word;
        if (TakeDscWord(value, word)) AddFont(word.text, embeddedFonts);
    }

    // A continuation line may omit the type word; the last one remains valid. Files that the
    // document contains are the driver's own (procedures, error handlers), with a version and a
    // revision behind the name.
    void TakeResources(std::string_view value, Texts& list, bool isNeeded)
    {
        constexpr std::string_view kTypes[] = {"font", "file",     "procset",
                                               "form", "encoding", "pattern"};
        DscWord word;
        while (TakeDscWord(value, word)) {
            const bool isType = !word.quoted && std::find(std::begin(kTypes), std::end(kTypes),
                                                          word.text) != std::end(kTypes);
            if (isType) {
                mResourceType = word.text;
            } else if (mResourceType == "font") {
                AddFont(word.text, list);
            } else if (mResourceType == "file" && isNeeded) {
                AddOnce(listedFiles, base::ToValidUtf8(word.text));
            }
        }
    }

    void TakeIncludedFile(std::string_view value)
    {
        std::string file = base::ToValidUtf8(GetDscText(value));
        if (!file.empty()) includedFiles.push_back(std::move(file));
    }

    std::string mResourceType;
};

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
    const Texts& included = comments.includedFiles;
    for (std::string& file : comments.listedFiles) {
        if (std::find(included.begin(), included.end(), file) == included.end()) {
            document.linkedFiles.push_back(std::move(file));
        }
    }
    if (comments.isCutOff) document.notes.emplace_back("cut off within its data");
}

ReadResult ReadDscComments(const DocumentSource& source, const Limits& limits, Document& document)
{
    (void)limits;  // comments are neither compressed nor nested
    if (source.pdf != nullptr) return {};
    Comments comments(source.postScript);
    const bool isForeign = comments.creator.find("Adobe Illustrator") == std::string::npos;
    if (isForeign && !comments.listsFonts && comments.embeddedFonts.empty()) return {};
    const Texts& fonts = comments.fonts.empty() ? comments.embeddedFonts : comments.fonts;
    std::vector<TextRun> runs;
    runs.reserve(fonts.size());
    for (const std::string& font : fonts) runs.push_back({font, 1});
    if (!runs.empty()) DocumentBuilder(document).AddFrameWithStory(std::move(runs));
    return {ReadStatus::kRead, {}};
}

ReadResult ReadWithoutFonts(const DocumentSource& source, const Limits& limits, Document& document)
{
    (void)limits;    // nothing is read
    (void)document;  // it has no text
    return {source.pdf == nullptr ? ReadStatus::kRead : ReadStatus::kNotMine, {}};
}

}  // namespace documents
