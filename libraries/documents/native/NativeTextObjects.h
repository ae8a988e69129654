#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "documents/model/Document.h"
#include "documents/postscript/DscText.h"

namespace documents {

// Collects the text objects of versions up to 10: between "0 To" and "TO", fonts are set and
// strings are shown in them. Consecutive strings in one font are one run. The font remains set from
// one object to the next.
class NativeTextObjects {
public:
    // "[/_Alias/PostScriptName 0 0 0 TZ": defines the alias that SetFont lines use for a font.
    void DefineAlias(std::string_view line);

    // "/_Alias 11 8.8 -2.7 Tf". Styled lines (prefix "%_") have a font of their own.
    void SetFont(std::string_view line, bool isStyled);

    void Begin(bool isStyled);
    bool IsOpen() const { return mIsOpen; }
    // `text` is a string of the object, or the start of a long one.
    void Show(const DscWord& text);

    // Ends the object. Returns true and sets `runs` unless the object is a repeat: the user's own
    // form of styled art ("%_") is reported only if no earlier object has the same fonts and text.
    bool End(std::vector<TextRun>& runs);

private:
    std::string ResolveAlias(std::string_view alias) const;

    std::map<std::string, std::string, std::less<>> mAliases;
    std::string mFonts[2];  // the present font of plain lines, of styled lines
    bool mIsOpen = false;
    bool mIsStyled = false;
    bool mEndsInReturn = false;
    std::vector<TextRun> mRuns;
    std::string mContent;                   // fonts and first bytes of the object's text
    std::unordered_set<std::string> mSeen;  // mContent of every object so far
};

}  // namespace documents
