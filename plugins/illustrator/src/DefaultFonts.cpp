#include "DefaultFonts.h"

#include "DebugUtils.h"
#include "GJSONUtils.h"
#include "HostInterface.h"
#include "PluginGlobals.h"

namespace {

constexpr char kDocumentFonts[] = "DocumentFonts";
constexpr char kPostScriptName[] = "PostScriptName";
constexpr short kNameSize = 128;

// The host's numbers of its scripts.
constexpr AIFaceScript kScripts[] = {-2, -1, 0,  1,  2,  3,  4,  5,  6,  7,  9,  10,
                                     11, 12, 13, 14, 15, 16, 17, 25, 29, 32, 81, 85};

void AddIfNew(const std::string& name, std::vector<std::string>& names)
{
    // IsIllustratorDefaultFont fetches this list: with an empty one it would recurse without end.
    if (!names.empty() && IsIllustratorDefaultFont(name)) return;
    OutputIndentedAndFormattedString(0, "Adding '%s' to list of Illustrator default fonts.",
                                     name.c_str());
    names.push_back(name);
}

bool RemoveFromArray(json& fonts)
{
    OutputIndentedAndFormattedString(1, "Entering %s(with an array of %d fonts)",
                                     "RemoveIllustratorDefaultFonts",
                                     static_cast<int>(fonts.size()));
    bool isChanged = false;
    for (size_t index = fonts.size(); index-- > 0;) {
        json font = fonts[index];
        const GJSONScope scope(font);
        if (font.is_object()) {
            OutputIndentedAndFormattedString(0, "%s is %s", kPostScriptName,
                                             font[kPostScriptName].get<std::string>().c_str());
        }
        // The JSON library leaves a null value unusable if it can't make it an object.
        if (font.is_null()) font = json::object();
        // Throws for an element that isn't an object, since the array then isn't a list of fonts.
        const std::string name = font[kPostScriptName].get<std::string>();
        if (!IsIllustratorDefaultFont(name)) continue;
        OutputIndentedAndFormattedString(0, "%s() removing '%s' from fonts needing resolution.",
                                         "RemoveIllustratorDefaultFonts", name.c_str());
        GJSONUtils::Clear(fonts[index]);
        fonts.erase(index);
        isChanged = true;
    }
    OutputIndentedAndFormattedString(-1, "Exiting %s(with an array of %d fonts)",
                                     "RemoveIllustratorDefaultFonts",
                                     static_cast<int>(fonts.size()));
    return isChanged;
}

}  // namespace

const std::vector<std::string>& GetIllustratorDefaultFonts()
{
    static std::vector<std::string> kAllIllustratorDefaultFontNames;
    if (!kAllIllustratorDefaultFontNames.empty()) return kAllIllustratorDefaultFontNames;

    // An empty list would mean that no font is a default font.
    if (gFontSuite == nullptr) ThrowAIErr(kHostBadParameter);
    // Not reset in the loop: for a script that the host doesn't know, the previous key is used
    // again, and its names are already in the list.
    AIFontKey key = nullptr;
    for (const AIFaceScript script : kScripts) {
        // On an error the key is unchanged, see above.
        (void)gFontSuite->GetDefaultFontForScript(script, &key);
        // One byte more than the host may write, so that the text is always terminated.
        char name[kNameSize + 1] = {};
        // On an error the name is empty, and is added like any other.
        (void)gFontSuite->GetPostScriptFontName(key, name, kNameSize);
        const std::string fullName = name;
        AddIfNew(fullName, kAllIllustratorDefaultFontNames);
        AddIfNew(fullName.substr(0, fullName.find('-')), kAllIllustratorDefaultFontNames);
    }
    return kAllIllustratorDefaultFontNames;
}

bool IsIllustratorDefaultFont(const std::string& name)
{
    for (const std::string& entry : GetIllustratorDefaultFonts()) {
        if (name.compare(0, entry.size(), entry) == 0) return true;
    }
    return false;
}

bool RemoveIllustratorDefaultFonts(json& fonts)
{
    if (fonts.is_object()) {
        // Indexing adds the member if it is missing.
        json documentFonts = fonts[kDocumentFonts];
        const GJSONScope scope(documentFonts);
        const bool isChanged = RemoveIllustratorDefaultFonts(documentFonts);
        if (isChanged) fonts[kDocumentFonts].swap(documentFonts);
        return isChanged;
    }
    return fonts.is_array() && RemoveFromArray(fonts);
}

bool RemoveIllustratorDefaultFonts(std::string& text)
{
    OutputIndentedAndFormattedString(1, "Entering %s()", "RemoveIllustratorDefaultFonts");
    json fonts = GJSONUtils::ParseOrThrow(text);
    const GJSONScope scope(fonts);
    const bool isChanged = !fonts.is_null() && RemoveIllustratorDefaultFonts(fonts);
    if (isChanged) text = fonts.dump();
    OutputIndentedAndFormattedString(-1, "Exiting %s() with result %d",
                                     "RemoveIllustratorDefaultFonts", isChanged);
    return isChanged;
}
