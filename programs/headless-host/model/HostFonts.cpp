#include "model/HostFonts.h"

#include "documents/model/FontName.h"
#include "fonts/ActiveFonts.h"
#include "fonts/FontconfigMessages.h"

namespace headless {

namespace {

// The scripts that the host has a default font for, each with the language that fontconfig is asked
// for. Empty: the default of the system.
struct ScriptRow {
    AIFaceScript script;
    const char* language;
};

constexpr ScriptRow kScripts[] = {
    {-2, ""},   {-1, ""},      {0, "en"},  {1, "ja"},  {2, "zh-tw"}, {3, "ko"},
    {4, "ar"},  {5, "he"},     {6, "el"},  {7, "ru"},  {9, "hi"},    {10, "pa"},
    {11, "gu"}, {12, "or"},    {13, "bn"}, {14, "ta"}, {15, "te"},   {16, "kn"},
    {17, "ml"}, {25, "zh-cn"}, {29, "cs"}, {32, ""},   {81, "tr"},   {85, "vi"},
};

}  // namespace

std::set<std::string> SystemFonts::ListActiveNames() { return fonts::GetActiveFontNames(); }

std::string SystemFonts::GetDefaultName(const std::string& language)
{
    return fonts::GetDefaultFontName(language);
}

std::map<std::string, documents::FontFile> SystemFonts::ListFiles()
{
    std::map<std::string, documents::FontFile> files;
    for (const fonts::ActiveFont& font : fonts::ListActiveFonts()) {
        // If several files contain a font of this name, the first one is used.
        (void)files.emplace(font.postScriptName, documents::FontFile{font.file, font.index});
    }
    return files;
}

std::string SystemFonts::GetProblem()
{
    const bool isEmpty = fonts::ListActiveFonts().empty();
    const std::string problem = fonts::GetFontconfigProblem();
    if (!problem.empty()) return "fontconfig: " + problem;
    return isEmpty ? "fontconfig: there are no fonts on this system" : "";
}

const std::set<std::string>& HostFonts::RefreshActiveNames()
{
    mActive = mSource.ListActiveNames();
    return mActive;
}

std::string HostFonts::Match(const std::string& name) const
{
    return documents::ChooseFontName(
        name, [this](const std::string& each) { return mActive.count(each) != 0; });
}

const std::string& HostFonts::GetDefaultName(AIFaceScript script)
{
    std::string language;
    for (const ScriptRow& row : kScripts) {
        if (row.script == script) language = row.language;
    }
    return GetDefaultNameOf(language);
}

const std::string& HostFonts::GetDefaultNameOf(const std::string& language)
{
    const auto found = mDefaults.find(language);
    if (found != mDefaults.end()) return found->second;
    return mDefaults[language] = mSource.GetDefaultName(language);
}

bool HostFonts::IsDefault(const std::string& postScriptName)
{
    for (const ScriptRow& row : kScripts) {
        if (GetDefaultName(row.script) == postScriptName) return true;
    }
    return false;
}

AIFontKey HostFonts::GetKey(const std::string& postScriptName)
{
    const auto found = mKeys.find(postScriptName);
    if (found != mKeys.end()) return found->second;
    AIFontKey const key =
        mHandles.Issue(std::make_shared<FontKeyObject>(FontKeyObject{postScriptName}));
    mKeys[postScriptName] = key;
    return key;
}

}  // namespace headless
