#include "documents/postscript/DscLines.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "base/Lines.h"
#include "base/Strings.h"

namespace documents {

bool DscLines::Next(DscComment& comment)
{
    while (!mRest.empty()) {
        const std::string_view line = base::TakeLine(mRest);
        if (!base::StartsWith(line, "%%")) continue;
        comment = SplitDscComment(line);
        if (comment.keyword == "BeginData" || comment.keyword == "BeginBinary") {
            SkipData(comment);
        } else if (comment.keyword == "BeginDocument") {
            ++mNesting;
        } else if (comment.keyword == "EndDocument") {
            if (mNesting > 0) --mNesting;
        } else if (mNesting == 0) {
            SkipResource(comment);
            return true;
        }
    }
    return false;
}

void DscLines::SkipResource(const DscComment& begin)
{
    constexpr std::array<std::string_view, kResourceKinds> kBegins = {"BeginFont", "BeginResource",
                                                                      "BeginProcSet"};
    constexpr std::array<std::string_view, kResourceKinds> kEnds = {"EndFont", "EndResource",
                                                                    "EndProcSet"};
    const auto kind = static_cast<size_t>(std::find(kBegins.begin(), kBegins.end(), begin.keyword) -
                                          kBegins.begin());
    if (kind == kResourceKinds) return;
    DscLines ahead(mRest);
    size_t depth = 1;
    while (!ahead.mRest.empty()) {
        const std::string_view line = base::TakeLine(ahead.mRest);
        if (line.substr(0, 2) != "%%") continue;
        const DscComment comment = SplitDscComment(line);
        if (comment.keyword == kEnds[kind]) {
            if (--depth > 0) continue;
            mRest = ahead.mRest;
            return;
        }
        if (comment.keyword == kBegins[kind]) {
            if (mIsUnbalanced[kind]) return;
            ++depth;
        } else if (comment.keyword == "BeginData" || comment.keyword == "BeginBinary") {
            ahead.SkipData(comment);
        }
    }
    mIsUnbalanced[kind] = true;
}

size_t DscLines::MeasureData(size_t count, bool countsLines) const
{
    if (!countsLines) return count;
    std::string_view rest = mRest;
    for (; count > 0 && !rest.empty(); --count) (void)base::TakeLine(rest);
    return mRest.size() - rest.size();
}

void DscLines::SkipData(const DscComment& begin)
{
    std::string_view rest = begin.value;
    DscWord number;
    DscWord type;
    DscWord unit;
    if (!TakeDscWord(rest, number, kMostDscBytes)) return;
    (void)(TakeDscWord(rest, type, kMostDscBytes) &&
           TakeDscWord(rest, unit, kMostDscBytes));  // optional; the default is bytes
    size_t count = 0;
    const char* last = number.text.data() + number.text.size();
    if (std::from_chars(number.text.data(), last, count).ec != std::errc()) return;
    const size_t length = MeasureData(count, unit.text == "Lines");

    const std::string endMark = begin.keyword == "BeginData" ? "%%EndData" : "%%EndBinary";
    if (length <= mRest.size()) {
        std::string_view behind = mRest.substr(length);
        behind.remove_prefix(std::min(behind.find_first_not_of("\r\n"), behind.size()));
        if (base::StartsWith(behind, endMark)) {
            mRest = behind;
            return;
        }
    }
    // The count is wrong: line ends were converted, or the file is cut off. Search for the end
    // mark.
    const size_t found = mRest.find(endMark);
    if (found != std::string_view::npos) {
        mRest.remove_prefix(found);
    } else if (length <= mRest.size()) {
        mRest.remove_prefix(length);
    } else {
        mCutOff = true;
        mRest = {};
    }
}

}  // namespace documents
