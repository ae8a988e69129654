#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "documents/model/Document.h"

namespace documents {

// The text objects of versions up to 10: from "0 To" to "TO" the fonts that are set and the strings
// that are shown in them. Strings that follow each other in one font are one run; the font stays
// set from one object to the next.
class NativeTextObjects {
public:
    // "[/_Alias/PostScriptName 0 0 0 TZ": what a name stands for that fonts are set by.
    void DefineAlias(std::string_view line);

    // "/_Alias 11 8.8 -2.7 Tf".
    void SetFont(std::string_view line, bool isStyled);

    void Begin(bool isStyled);
    bool IsOpen() const { return mIsOpen; }
    void Show(const std::string& text);

    // True if the object counts; `runs` is then its text. An object in the user's own form counts
    // if no other one shows the same.
    bool End(std::vector<TextRun>& runs);

private:
    std::string ResolveAlias(std::string_view alias) const;

    std::map<std::string, std::string, std::less<>> mAliases;
    std::string mFonts[2];  // as it is set by plain lines, by lines of the user's own form
    bool mIsOpen = false;
    bool mIsStyled = false;
    bool mEndsInReturn = false;
    std::vector<TextRun> mRuns;
    std::string mContent;
    std::unordered_set<std::string> mSeen;
};

}  // namespace documents
