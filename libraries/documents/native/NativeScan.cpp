#include "documents/native/NativeScan.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

#include "base/Strings.h"
#include "base/Utf8.h"
#include "documents/bytes/Decompress.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/model/DocumentBuilder.h"
#include "documents/native/NativeKeys.h"
#include "documents/native/NativeLines.h"
#include "documents/native/NativeTextObjects.h"
#include "documents/postscript/DscText.h"

namespace documents {

namespace {

constexpr size_t kMostFrameLines = 64;
constexpr std::string_view kSpaces = " \t";

// Whether the line ends in this operator, with a space before it.
bool EndsInOperator(std::string_view line, std::string_view operation)
{
    return line.size() > operation.size() && base::EndsWith(line, operation) &&
           line[line.size() - operation.size() - 1] == ' ';
}

// Whether the line is this operator, spaces after it aside.
bool IsOnly(std::string_view line, std::string_view operation)
{
    return base::StartsWith(line, operation) &&
           base::TrimEnd(line.substr(operation.size()), kSpaces).empty();
}

// Returns the number before `key` in a line such as "2 /StoryIndex ,", or -1 if there is none.
long long GetNumberBefore(std::string_view line, std::string_view key)
{
    const size_t end = line.find(key);
    if (end == std::string_view::npos || end == 0) return -1;
    const size_t last = line.find_last_not_of(' ', end - 1);
    if (last == std::string_view::npos) return -1;
    const size_t before = line.find_last_of(" ,:;", last);
    const size_t start = before == std::string_view::npos ? 0 : before + 1;
    long long number = -1;
    // On failure the number remains -1.
    (void)std::from_chars(line.data() + start, line.data() + last + 1, number);
    return number;
}

class Scanner {
public:
    explicit Scanner(std::string_view text) : mLines(text) {}

    NativeContents Scan()
    {
        std::string_view line;
        while (mContents.error.empty() && mLines.Next(line)) {
            mIsStyled = base::StartsWith(line, record::kStyled);
            if (mIsStyled) line.remove_prefix(record::kStyled.size());
            if (!line.empty()) TakeLine(line);
        }
        mContents.linksAreListed = mContents.linkedFiles.empty();
        if (mContents.linksAreListed) {
            mContents.linkedFiles = mIncludedFiles.empty() ? mListedFiles : mIncludedFiles;
        }
        return std::move(mContents);
    }

private:
    void TakeLine(std::string_view line)
    {
        switch (line.front()) {
            case '/':
                TakeNameLine(line);
                break;
            case '[':
                if (base::EndsWith(line, record::kFontAlias)) mObjects.DefineAlias(line);
                break;
            case '(':
            case record::kPlaced:
                TakeTextLine(line);
                break;
            case '%':
                TakeComment(line);
                break;
            case 'T':
                if (IsOnly(line, record::kEndText)) EndObject();
                break;
            default:
                // The operand is one digit: the kind of the text object.
                if (line.size() >= 4 && line[1] == ' ' &&
                    IsOnly(line.substr(2), record::kBeginText)) {
                    mObjects.Begin(mIsStyled);
                }
                break;
        }
    }

    void TakeNameLine(std::string_view line)
    {
        line = base::TrimEnd(line, kSpaces);
        if (base::StartsWith(line, record::kTextDocument)) {
            TakeTree(line);
        } else if (base::StartsWith(line, record::kTextFrame)) {
            TakeFrame(line);
        } else if (base::StartsWith(line, record::kLegacyText)) {
            TakeLegacyText();
        } else if (EndsInOperator(line, record::kSetFont)) {
            mObjects.SetFont(line, mIsStyled);
        } else if (EndsInOperator(line, record::kFontAlias)) {
            mObjects.DefineAlias(line);
        }
    }

    // Appends to `data` what `rest`, a part of GetRest(), holds as ASCII85 up to its end mark, and
    // continues after that mark. Returns false if the mark is missing or the data is damaged.
    bool Decode(std::string_view rest, ByteBuffer& data)
    {
        const size_t end = rest.find(record::kAscii85End);
        if (end == std::string_view::npos) return false;
        mLines.Skip(static_cast<size_t>(rest.data() - mLines.GetRest().data()) + end +
                    record::kAscii85End.size());
        return DecodeAscii85(rest.substr(0, end + 1), data);
    }

    // Only the first text tree is used.
    void TakeTree(std::string_view line)
    {
        if (mContents.hasTree) return;
        if (line.find(record::kAscii85) == std::string_view::npos) {
            mContents.error = "its text is packed in an unknown way";
        } else if (!Decode(mLines.GetRest(), mContents.tree)) {
            mContents.error = "its text is damaged";
        }
        mContents.hasTree = mContents.error.empty();
    }

    void AddText(NativeText text)
    {
        if (mContents.texts.size() >= DocumentBuilder::kMaximumRuns) {
            throw LimitExceeded("too large: more text than can be read");
        }
        mContents.texts.push_back(std::move(text));
    }

    void TakeFrame(std::string_view line)
    {
        long long undone = -1;
        long long story = -1;
        long long frame = -1;
        for (size_t count = 0; count < kMostFrameLines; ++count) {
            undone = std::max(undone, GetNumberBefore(line, record::kFreeUndo));
            story = std::max(story, GetNumberBefore(line, record::kStoryIndex));
            frame = std::max(frame, GetNumberBefore(line, record::kFrameIndex));
            const bool isWhole = undone >= 0 && story >= 0 && frame >= 0;
            // The outline of the frame follows the numbers.
            const bool isOutline = line.find(record::kArt) != std::string_view::npos;
            if (isWhole || isOutline || !mLines.Next(line)) break;
            if (base::StartsWith(line, record::kStyled)) line.remove_prefix(record::kStyled.size());
        }
        // /FreeUndo 1 marks a copy that an effect generated; its source frame is in the file too.
        if (undone == 1 || story < 0 || frame < 0 || !mFrames.emplace(story, frame).second) return;
        NativeText text;
        text.type = NativeText::Type::kFrame;
        text.story = static_cast<size_t>(story);
        text.frame = static_cast<size_t>(frame);
        AddText(std::move(text));
    }

    // The data is the block of lines before the next end mark that begin with a percent sign. The
    // lines between the record's name and that block vary, so search backwards from the end mark.
    void TakeLegacyText()
    {
        const std::string_view rest = mLines.GetRest();
        const size_t end = rest.find(record::kAscii85End);
        if (end == std::string_view::npos) return;
        size_t start = end;
        while (start > 0) {
            const size_t lineEnd = rest.find_last_not_of("\r\n", start - 1);
            if (lineEnd == std::string_view::npos) break;
            const size_t before = rest.find_last_of("\r\n", lineEnd);
            const size_t lineStart = before == std::string_view::npos ? 0 : before + 1;
            if (rest[lineStart] != '%' ||
                base::StartsWith(rest.substr(lineStart), record::kStyled)) {
                break;
            }
            start = lineStart;
        }
        NativeText text;
        text.type = NativeText::Type::kPdf;
        text.pdf = std::make_unique<ByteBuffer>();
        const bool isGood = Decode(rest.substr(start), *text.pdf);
        if (isGood && text.pdf->GetView().substr(0, 1024).find("%PDF-") != std::string_view::npos) {
            AddText(std::move(text));
        }
    }

    void TakeComment(std::string_view line)
    {
        if (base::StartsWith(line, record::kFileFormat)) mContents.isNative = true;
        if (mIsStyled || !base::StartsWith(line, "%%")) return;
        const DscComment comment = SplitDscComment(line);
        if (comment.keyword != "+") mIsFileList = comment.keyword == "DocumentFiles";
        const bool isIncluded = comment.keyword == "IncludeFile";
        if ((!mIsFileList && !isIncluded) || IsAtEnd(comment.value)) return;
        std::string path = GetDscPath(comment.value);
        if (!path.empty()) (isIncluded ? mIncludedFiles : mListedFiles).push_back(std::move(path));
    }

    // Takes strings with their operators:
    // "(text) Tx 1 0 Tk", "(path) 0 XG", "`(path)" and "(path) `".
    void TakeTextLine(std::string_view line)
    {
        const bool isMarked = line.front() == record::kPlaced;
        if (isMarked) line.remove_prefix(1);
        if (line.empty() || line.front() != '(') return;
        DscWord word;
        while (!line.empty() && line.front() == '(') {
            JoinLines(line);
            // One byte more than a path may have, to recognise a longer one. Never false: the line
            // begins with a parenthesis.
            (void)TakeDscWord(line, word, kMostDscBytes + 1);
            const size_t next = std::min(line.find('('), line.size());
            std::string_view operation = line.substr(0, next);
            line.remove_prefix(next);
            operation.remove_prefix(std::min(operation.find_first_not_of(' '), operation.size()));
            operation = base::TrimEnd(operation, kSpaces);
            const std::string_view first = operation.substr(0, 2);
            if (first == record::kShow || first == record::kShowAtEnd ||
                first == record::kShowJustified) {
                if (mObjects.IsOpen()) mObjects.Show(word);
            } else if (!mIsStyled && !word.text.empty() && word.text.size() <= kMostDscBytes) {
                const bool isPlaced = isMarked ||
                                      operation == std::string_view(&record::kPlaced, 1) ||
                                      operation == record::kLinkedRaster;
                if (isPlaced) mContents.linkedFiles.push_back(base::ToValidUtf8(word.text));
            }
        }
    }

    // A backslash at the end of a line continues a long string on the next line.
    void JoinLines(std::string_view& line)
    {
        constexpr size_t kMostLines = 4096;
        constexpr size_t kMostJoined = size_t{16} << 20;  // bytes that are copied for this
        if (line.empty() || line.back() != '\\' || line.size() > kMostJoined) return;
        std::string joined;  // `line` may be a part of mJoined
        // Without space for the next line, appending it would copy a long line again.
        joined.reserve(line.size() + line.size() / 8);
        joined.assign(line);
        for (size_t count = 0; count < kMostLines && joined.back() == '\\'; ++count) {
            if (joined.size() > kMostJoined) break;
            joined.pop_back();
            if (!mLines.Next(line)) break;
            if (mIsStyled && base::StartsWith(line, record::kStyled)) {
                line.remove_prefix(record::kStyled.size());
            }
            joined += line;
            if (joined.empty()) break;
        }
        mJoined = std::move(joined);
        line = mJoined;
    }

    void EndObject()
    {
        NativeText text;
        if (mObjects.End(text.runs) && !text.runs.empty()) AddText(std::move(text));
    }

    NativeLines mLines;
    NativeContents mContents;
    NativeTextObjects mObjects;
    bool mIsStyled = false;    // the present line has the prefix "%_"
    bool mIsFileList = false;  // the last comment was %%DocumentFiles, which %%+ continues
    std::set<std::pair<long long, long long>> mFrames;  // (story, frame) of those added
    std::vector<std::string> mListedFiles;              // %%DocumentFiles
    std::vector<std::string> mIncludedFiles;            // %%IncludeFile
    std::string mJoined;
};

}  // namespace

NativeContents ScanNative(std::string_view text) { return Scanner(text).Scan(); }

}  // namespace documents
