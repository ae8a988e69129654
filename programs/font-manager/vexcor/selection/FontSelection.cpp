#include "vexcor/selection/FontSelection.h"

#include <fnmatch.h>

#include <algorithm>
#include <filesystem>
#include <set>

#include "fonts/FontFaces.h"
#include "plugin-core/storage/Failure.h"
#include "vexcor/selection/NeededFonts.h"

namespace fs = std::filesystem;
using plugincore::Services;

namespace vexcor {
namespace {

using Names = std::vector<std::string>;

constexpr int64_t kNoLimit = -1;

bool IsKnown(Services& services, const std::string& name)
{
    return services.library.FindAnywhere(name).has_value() ||
           !services.activation.FindActiveFile(name).empty();
}

// The paths under which the library may know what the user named.
std::vector<std::string> ListSpellings(const std::string& path)
{
    std::error_code error;
    fs::path absolute = fs::absolute(path, error).lexically_normal();
    if (!absolute.has_filename() && absolute.has_relative_path()) absolute = absolute.parent_path();
    return {absolute, fs::weakly_canonical(absolute, error)};
}

FontSelection SelectInFolder(Services& services, const std::string& word)
{
    for (const std::string& path : ListSpellings(word)) {
        Names names = services.library.ListNames(path, 0, kNoLimit);
        if (!names.empty()) return {std::move(names), {}};
    }
    return {{}, word + ": no font of the font library is in this folder"};
}

// The fonts of a file in the library. Activation is by name, so another file may be used.
FontSelection SelectInFontFile(Services& services, const std::string& word, Names names,
                               const std::string& path)
{
    FontSelection selection;
    for (std::string& name : names) {
        const std::string used = services.library.Find(name).value_or(path);
        if (used != path) {
            selection.problem = word + ": " + name + " is in " + used + " too, which is used";
        }
        selection.names.push_back(std::move(name));
    }
    return selection;
}

FontSelection SelectInFile(Services& services, const std::string& word)
{
    for (const std::string& path : ListSpellings(word)) {
        Names names = services.library.GetNamesInFile(path);
        if (!names.empty()) return SelectInFontFile(services, word, std::move(names), path);
    }
    if (!fonts::ReadFontFaces(word).faces.empty()) {
        return {{}, word + ": not in the font library; add its folder with Vexcor add"};
    }
    try {
        Names names = ReadNeededFonts(services, word).names;
        if (!names.empty()) return {std::move(names), {}};
        return {{}, word + ": needs no fonts"};
    } catch (const plugincore::Failure& failure) {
        return {{}, failure.what()};
    }
}

}  // namespace

bool MatchesPattern(const std::string& name, const std::string& pattern)
{
    return fnmatch(pattern.c_str(), name.c_str(), FNM_CASEFOLD) == 0;
}

std::vector<std::string> ListAllNames(Services& services)
{
    std::set<std::string> names = services.activation.GetActive();
    for (std::string& name : services.library.ListNames("", 0, kNoLimit)) {
        names.insert(std::move(name));
    }
    return {names.begin(), names.end()};
}

FontSelection SelectFonts(Services& services, const std::string& word)
{
    if (IsKnown(services, word)) return {{word}, {}};
    std::error_code error;
    if (fs::is_directory(word, error)) return SelectInFolder(services, word);
    if (fs::exists(word, error)) return SelectInFile(services, word);
    if (word.find('/') != std::string::npos) return {{}, word + ": no such file or folder"};
    FontSelection selection;
    if (word.find_first_of("*?[") != std::string::npos) {
        for (std::string& name : ListAllNames(services)) {
            if (MatchesPattern(name, word)) selection.names.push_back(std::move(name));
        }
    }
    if (!selection.names.empty()) return selection;
    selection.problem = word + ": no font of this name in the font library";
    const Names similar = services.library.ListSimilarNames(word);
    if (!similar.empty()) selection.problem += "; similar: " + plugincore::JoinNames(similar);
    return selection;
}

std::string FindFamily(Services& services, const std::string& file,
                       const std::string& postScriptName)
{
    const auto indexed = services.library.FindFaceNames(file, postScriptName);
    if (indexed) return indexed->family;
    const fonts::FontFaces content = fonts::ReadFontFaces(file);
    const auto face = std::find_if(
        content.faces.begin(), content.faces.end(),
        [&](const fonts::FontFace& known) { return known.postScriptName == postScriptName; });
    return face == content.faces.end() ? std::string() : face->family;
}

}  // namespace vexcor
