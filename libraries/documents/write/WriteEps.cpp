#include <locale>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "base/Lines.h"
#include "documents/model/FileKind.h"
#include "documents/native/NativeAdditions.h"
#include "documents/postscript/DscText.h"
#include "documents/write/WriteDocument.h"

namespace documents {

namespace {

constexpr double kWidth = 595;
constexpr double kHeight = 842;

// Returns a name or path as a comment's value: unchanged if possible, else as a PostScript string.
std::string Quote(const std::string& text, bool isWord)
{
    const bool isPlain = !text.empty() && text.front() != '(' && text.front() != ' ' &&
                         text.back() != ' ' && text.find_first_of("\r\n\t") == std::string::npos &&
                         (!isWord || text.find_first_of(" ()") == std::string::npos);
    if (isPlain) return text;
    return QuoteAsString(text);
}

std::string MakeList(const char* keyword, const std::vector<std::string>& texts, bool areWords)
{
    std::string list;
    for (const std::string& text : texts) {
        list += (list.empty() ? std::string("%%") + keyword + ": " : std::string("%%+ ")) +
                Quote(text, areWords) + "\n";
    }
    return list;
}

// Position after the header's last comment.
size_t FindHeaderEnd(std::string_view eps)
{
    const size_t marked = base::FindLine(eps, "%%EndComments");
    if (marked != std::string_view::npos) return marked;
    const size_t line = eps.find_first_of("\r\n");
    if (line == std::string_view::npos) throw std::runtime_error("the EPS has no line end");
    return eps.find_first_not_of("\r\n", line) == std::string_view::npos
               ? eps.size()
               : eps.find_first_not_of("\r\n", line);
}

size_t FindBodyEnd(std::string_view eps)
{
    for (const std::string_view mark : {"%%Trailer", "%%EOF"}) {
        const size_t position = base::FindLastLine(eps, mark);
        if (position != std::string_view::npos) return position;
    }
    return eps.size();
}

// Position of the line after the one at `position`.
size_t FindNextLine(std::string_view text, size_t position)
{
    std::string_view rest = text.substr(position);
    (void)base::TakeLine(rest);
    return text.size() - rest.size();
}

// Removes the comment with this keyword and its continuation lines from the header.
void RemoveComment(std::string& eps, const std::string& keyword)
{
    const size_t start = base::FindLine(eps, "%%" + keyword + ":");
    if (start == std::string::npos || start > FindHeaderEnd(eps)) return;
    size_t end = FindNextLine(eps, start);
    while (eps.compare(end, 3, "%%+") == 0) end = FindNextLine(eps, end);
    eps.erase(start, end - start);
}

struct Box {
    double left = 0;
    double lower = 0;
    double right = kWidth;
    double upper = kHeight;
};

// The base's %%BoundingBox; the default box if it is missing or malformed.
Box FindBox(const std::string& eps)
{
    constexpr std::string_view kKeyword = "%%BoundingBox:";
    const size_t start = base::FindLine(eps, kKeyword);
    if (start == std::string::npos) return {};
    Box box;
    std::istringstream numbers(eps.substr(start + kKeyword.size(), 200));
    numbers.imbue(std::locale::classic());
    numbers >> box.left >> box.lower >> box.right >> box.upper;
    const bool isUsable = numbers && box.right > box.left && box.upper > box.lower;
    return isUsable ? box : Box();
}

std::string DrawTexts(const WriteOrder& order, const Box& box)
{
    const double width = box.right - box.left;
    const double height = box.upper - box.lower;
    std::vector<TextBlock> blocks;
    for (size_t i = 0; i < order.texts.size(); ++i) {
        const AddedText& text = order.texts[i];
        blocks.push_back(
            {ChooseFont(order, text.postScriptName), {PlaceLine(i, text.words, width, height)}});
    }
    return DrawTextAsEps(width, height, blocks);
}

// Embeds a drawing: save and restore keep its changes of the graphics state inside it.
std::string Embed(const std::string& eps, const Box& box)
{
    return "\nsave /showpage {} def " + std::to_string(box.left) + " " + std::to_string(box.lower) +
           " translate\n%%BeginDocument: added text\n" + eps + "\n%%EndDocument\nrestore\n";
}

std::string TakePostScript(const std::string& file)
{
    if (GetContainer(file) != Container::kDosEPS) return file;
    const PostScriptSection section = FindPostScriptSection(file);
    if (!section.error.empty()) throw std::runtime_error(section.error);
    return std::string(section.bytes);
}

}  // namespace

std::string WriteEps(const WriteOrder& order)
{
    std::string result = TakePostScript(order.base);
    const bool isNew = result.empty();
    const bool isChanged = isNew || !order.texts.empty() || !order.addedLinks.empty();
    if (!isChanged) return order.base;
    if (isNew) {
        result = DrawTexts(order, {});
        RemoveComment(result, "Creator");
        RemoveComment(result, "CreationDate");
    }
    std::string body;
    if (!isNew && !order.texts.empty()) {
        const Box box = FindBox(result);
        body = Embed(DrawTexts(order, box), box);
    }
    RemoveComment(result, "DocumentFonts");
    RemoveComment(result, "DocumentFiles");
    for (const std::string& file : order.addedLinks) {
        body += "%%IncludeFile: " + Quote(file, false) + "\n";
    }
    if (!isNew) body += WriteAdditions(MakeAdditions(order));
    result.insert(FindBodyEnd(result), body);
    result.insert(FindHeaderEnd(result), (isNew ? "%%Creator: Headless Host\n" : "") +
                                             MakeList("DocumentFonts", order.fonts, true) +
                                             MakeList("DocumentFiles", order.linkedFiles, false));
    return result;
}

}  // namespace documents
