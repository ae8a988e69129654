#include "docfonts/analysis/FontSearch.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/Strings.h"
#include "documents/model/FontName.h"
#include "fonts/ActiveFonts.h"
#include "fonts/FontFaces.h"
#include "fonts/FontconfigMessages.h"
#include "plugin-core/library/FontLibrary.h"
#include "plugin-core/library/LibraryFolders.h"
#include "plugin-core/storage/Database.h"
#include "plugin-core/storage/Locations.h"

namespace docfonts {

namespace {

constexpr size_t kMostAnswers = 4096;

}  // namespace

// The font manager's index, opened for reading only.
class FontSearch::Library {
public:
    explicit Library(const plugincore::Locations& locations)
        : mDatabase(locations.database, plugincore::Database::Access::kReadOnly),
          mFonts(mDatabase, plugincore::LibraryFolders(mDatabase, locations.libraries).GetFolders())
    {
    }

    std::vector<std::string> ListNames() { return mFonts.ListNames("", 0, INT64_MAX); }

    std::optional<Face> Find(const std::string& name)
    {
        const auto found = mFonts.FindPresent(name);
        if (!found) return std::nullopt;
        const fonts::FontFace& face = found->face;
        return Face{found->path, face.index, fonts::FaceNames{face.family, face.style}};
    }

private:
    plugincore::Database mDatabase;
    plugincore::FontLibrary mFonts;
};

std::string GetFamilyKey(const std::string& postScriptName)
{
    std::string_view family = postScriptName;
    family = family.substr(0, family.find('-'));
    for (const std::string_view end : {"MT", "PS"}) {
        if (family.size() > end.size() && base::EndsWith(family, end)) {
            family.remove_suffix(end.size());
        }
    }
    std::string key;
    for (const char c : base::ToLower(family)) {
        if (c != ' ' && c != '_') key += c;
    }
    return key;
}

FontSearch::FontSearch()
{
    ReadInstalled();
    try {
        ReadLibrary();
    } catch (const std::exception& exception) {
        mLibrary = nullptr;
        mProblems.push_back(std::string(exception.what()) +
                            "; fonts of the library are reported as missing");
    }
}

FontSearch::~FontSearch() = default;

void FontSearch::ReadInstalled()
{
    for (const fonts::ActiveFont& font : fonts::ListActiveFonts()) {
        Face& face = mInstalled[font.postScriptName];
        // If several files have the name: one of them, the same one in every call.
        if (face.file.empty() || font.file < face.file) face = {font.file, font.index, {}};
    }
    for (const auto& [name, face] : mInstalled) mFamilies[GetFamilyKey(name)].push_back(name);
    const std::string problem = fonts::GetFontconfigProblem();
    if (!problem.empty()) mProblems.push_back("fontconfig: " + problem);
    if (mInstalled.empty()) mProblems.emplace_back("fontconfig: there are no fonts on this system");
}

void FontSearch::ReadLibrary()
{
    const plugincore::Locations locations = plugincore::GetLocations();
    std::error_code ignored;  // a database that cannot be examined is reported when it is opened
    if (!std::filesystem::exists(locations.database, ignored) && !ignored) return;
    mLibrary = std::make_unique<Library>(locations);
    for (const std::string& name : mLibrary->ListNames()) {
        if (mInstalled.count(name) == 0) mFamilies[GetFamilyKey(name)].push_back(name);
    }
}

std::optional<FontSearch::Face> FontSearch::FindExactly(const std::string& name, UsedFont& font)
{
    const auto installed = mInstalled.find(name);
    std::optional<Face> face;
    if (installed != mInstalled.end()) {
        face = installed->second;
        font.state = FontState::kInstalled;
    } else if (mLibrary && (face = mLibrary->Find(name))) {
        font.state = FontState::kInLibrary;
    } else {
        return std::nullopt;
    }
    font.file = face->file;
    font.faceIndex = face->index;
    return face;
}

std::optional<FontSearch::Face> FontSearch::FindOtherStyle(const std::string& name, UsedFont& font)
{
    const auto family = mFamilies.find(GetFamilyKey(name));
    if (family == mFamilies.end()) return std::nullopt;
    // The plainest one is the most useful stand-in: that with the shortest name.
    std::vector<std::string> names = family->second;
    std::sort(names.begin(), names.end(), [](const std::string& left, const std::string& right) {
        return std::make_pair(left.size(), left) < std::make_pair(right.size(), right);
    });
    for (const std::string& other : names) {
        std::optional<Face> face = FindExactly(other, font);
        if (!face) continue;
        font.state = FontState::kOtherStyle;
        font.otherStyle = other;
        return face;
    }
    return std::nullopt;
}

UsedFont FontSearch::Find(const std::string& name)
{
    UsedFont font;
    const std::string sought = documents::ChooseFontName(name, [this](const std::string& known) {
        UsedFont unused;
        return FindExactly(known, unused).has_value();
    });
    std::optional<Face> face = FindExactly(sought, font);
    const bool isHere = face.has_value();
    if (!isHere) face = FindOtherStyle(sought, font);
    if (face) {
        const fonts::FaceNames names =
            face->names ? *face->names : fonts::ReadFaceNames(face->file, face->index);
        font.family = names.family;
        if (isHere) font.style = names.style;
    }
    const size_t hyphen = sought.find('-');
    if (font.family.empty()) font.family = sought.substr(0, hyphen);
    if (!isHere && hyphen != std::string::npos) font.style = sought.substr(hyphen + 1);
    return font;
}

void FontSearch::Complete(DocumentReport& report)
{
    for (UsedFont& font : report.fonts) {
        auto answer = mAnswers.find(font.postScriptName);
        if (answer == mAnswers.end()) {
            if (mAnswers.size() >= kMostAnswers) mAnswers.clear();
            answer = mAnswers.emplace(font.postScriptName, Find(font.postScriptName)).first;
        }
        const UsedFont& found = answer->second;
        font.family = found.family;
        font.style = found.style;
        font.state = found.state;
        font.otherStyle = found.otherStyle;
        font.file = found.file;
        font.faceIndex = found.faceIndex;
    }
    for (DocumentReport& document : report.placedDocuments) Complete(document);
}

}  // namespace docfonts
