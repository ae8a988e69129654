#include "documents/native/NativeTextObjects.h"

#include "documents/model/FontName.h"

namespace documents {

namespace {

constexpr size_t kMostContentBytes = 256;

// `text` begins with a slash; returns the name after it.
std::string_view GetName(std::string_view text)
{
    text.remove_prefix(1);
    return text.substr(0, text.find_first_of(" /[]()"));
}

}  // namespace

void NativeTextObjects::DefineAlias(std::string_view line)
{
    const size_t last = line.rfind('/');
    if (last == std::string_view::npos || last == 0) return;
    const size_t first = line.rfind('/', last - 1);
    if (first == std::string_view::npos) return;
    const std::string_view alias = GetName(line.substr(first));
    if (alias.empty() || first + 1 + alias.size() != last) return;
    if (!IsFontName(alias)) return;
    mAliases[std::string(alias)] = std::string(CutFontName(GetName(line.substr(last))));
}

std::string NativeTextObjects::ResolveAlias(std::string_view alias) const
{
    const auto found = mAliases.find(alias);
    if (found != mAliases.end() && !found->second.empty()) return found->second;
    // Without a definition, an alias is the PostScript name with an underscore before it.
    if (alias.substr(0, 1) == "_") alias.remove_prefix(1);
    return std::string(CutFontName(alias));
}

void NativeTextObjects::SetFont(std::string_view line, bool isStyled)
{
    mFonts[isStyled ? 1 : 0] = StripSubsetPrefix(ResolveAlias(GetName(line)));
}

void NativeTextObjects::Begin(bool isStyled)
{
    mIsOpen = true;
    mIsStyled = isStyled;
    mEndsInReturn = false;
    mRuns.clear();
    mContent.clear();
}

void NativeTextObjects::Show(const DscWord& text)
{
    const std::string& font = mFonts[mIsStyled ? 1 : 0];
    if (text.length == 0 || font.empty()) return;
    if (mRuns.empty() || mRuns.back().postScriptName != font) {
        mRuns.push_back({font, 0});
        if (mContent.size() < kMostContentBytes) mContent += font + '\0';
    }
    mRuns.back().length += text.length;
    mEndsInReturn = text.last == '\r' || text.last == '\n';
    if (mContent.size() < kMostContentBytes) mContent += text.text.substr(0, kMostContentBytes);
}

bool NativeTextObjects::End(std::vector<TextRun>& runs)
{
    if (!mIsOpen) return false;
    mIsOpen = false;
    // The return that ends every object isn't part of the user's text.
    if (mEndsInReturn && !mRuns.empty() && --mRuns.back().length == 0) mRuns.pop_back();
    const bool isNew = mSeen.insert(mContent).second;
    if (mIsStyled && !isNew) return false;
    runs = std::move(mRuns);
    mRuns.clear();
    return true;
}

}  // namespace documents
