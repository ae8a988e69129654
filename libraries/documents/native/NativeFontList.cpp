#include "documents/native/NativeFontList.h"

#include "base/Lines.h"
#include "base/Strings.h"
#include "documents/model/FontName.h"
#include "documents/native/NativeKeys.h"
#include "documents/postscript/DscText.h"

namespace documents {

namespace {

class FontList {
public:
    explicit FontList(std::string_view text)
    {
        TakeHeader(text);
        if (!mIsAtEnd) return;
        const size_t trailer = base::FindLastLine(text, "%%Trailer");
        if (trailer == std::string_view::npos) return;
        std::string_view rest = text.substr(trailer);
        while (!rest.empty()) TakeLine(base::TakeLine(rest));
    }

    std::vector<std::string> names;

private:
    void TakeHeader(std::string_view rest)
    {
        while (!rest.empty()) {
            const std::string_view line = base::TakeLine(rest);
            if (base::StartsWith(line, record::kEndComments)) return;
            if (!line.empty() && line.front() != '%') return;
            TakeLine(line);
        }
    }

    void TakeLine(std::string_view line)
    {
        if (!base::StartsWith(line, "%%")) return;
        DscComment comment = SplitDscComment(line);
        if (comment.keyword != "+") mIsList = comment.keyword == record::kDocumentFonts;
        if (!mIsList) return;
        if (IsAtEnd(comment.value)) {
            mIsAtEnd = true;
            return;
        }
        DscWord word;
        while (TakeDscWord(comment.value, word, kMostDscBytes)) Add(word.text);
    }

    void Add(std::string_view name)
    {
        if (!name.empty() && name.front() == '/') name.remove_prefix(1);
        if (name.empty() || name == record::kInvisibleFont) return;
        mLimit.Take(name.size());
        names.emplace_back(CutFontName(name));
    }

    bool mIsList = false;   // the last comment was %%DocumentFonts, which %%+ continues
    bool mIsAtEnd = false;  // the list is in the trailer
    DscNameLimit mLimit;
};

}  // namespace

std::vector<std::string> ReadFontList(std::string_view text) { return FontList(text).names; }

}  // namespace documents
