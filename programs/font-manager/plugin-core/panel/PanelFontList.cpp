#include "plugin-core/panel/PanelFontList.h"

#include <algorithm>

#include "base/Strings.h"
#include "plugin-core/panel/PanelFontFile.h"

namespace plugincore {
namespace {

// Far more than a large library has. Beyond it the names are read again.
constexpr size_t kMostKnownNames = 200000;

bool IsForBrowsers(const std::string& path, bool isType1)
{
    return !isType1 && !base::EndsWith(base::ToLower(path), ".dfont");
}

// The order is that of FontLibrary::Find.
std::string MakeQuery(size_t folders)
{
    std::string parameters;
    for (size_t count = 0; count < folders; ++count) parameters += count == 0 ? "?" : ",?";
    return "SELECT name, path, file_id, face_index, modified, is_type1 FROM ("
           "SELECT name, path, font_file.id AS file_id, face_index, modified, is_type1,"
           " ROW_NUMBER() OVER (PARTITION BY name ORDER BY is_type1, modified DESC, path) AS place"
           " FROM font_face JOIN font_file ON font_file.id = font_face.file"
           " WHERE library IN (" +
           parameters + ") AND substr(path, 1, length(?)) = ?) WHERE place = 1 ORDER BY name";
}

}  // namespace

const std::vector<PanelFont>& PanelFontList::List(const std::string& folder)
{
    const std::vector<std::string>& folders = mServices.library.GetFolders();
    std::string key = mServices.database.GetChangeMark() + '\0' + folder;
    for (const std::string& each : folders) key += '\0' + each;
    if (key == mKey) return mFonts;
    mKey.clear();
    mFonts.clear();
    Statement statement(mServices.database, MakeQuery(folders.size()));
    for (const std::string& each : folders) statement.Bind(each);
    const std::string prefix = folder.empty() ? folder : folder + "/";
    statement.Bind(prefix).Bind(prefix);
    while (statement.Step()) {
        PanelFont font;
        font.postScriptName = statement.GetText(0);
        font.path = statement.GetText(1);
        font.file = statement.GetNumber(2);
        font.faceIndex = statement.GetNumber(3);
        font.modified = statement.GetNumber(4);
        if (IsForBrowsers(font.path, statement.GetNumber(5) != 0)) {
            font.id = MakePanelFontId(font.file, font.faceIndex, font.modified);
        }
        mFonts.push_back(std::move(font));
    }
    mKey = std::move(key);
    return mFonts;
}

const PanelFontList::Names& PanelFontList::GetNames(const PanelFont& font)
{
    const auto key = std::make_tuple(font.file, font.modified, font.faceIndex);
    const auto known = mNames.find(key);
    if (known != mNames.end()) return known->second;
    if (mNames.size() >= kMostKnownNames) mNames.clear();
    Names names;
    names.family = fonts::ReadFaceNames(font.path, static_cast<int>(font.faceIndex));
    names.inLowerCase = base::ToLower(names.family.family + " " + names.family.style);
    return mNames.emplace(key, std::move(names)).first->second;
}

const fonts::FaceNames& PanelFontList::GetFamily(const PanelFont& font)
{
    return GetNames(font).family;
}

bool PanelFontList::Matches(const PanelFont& font, const std::vector<std::string>& words)
{
    const std::string name = base::ToLower(font.postScriptName);
    return std::all_of(words.begin(), words.end(), [&](const std::string& word) {
        return name.find(word) != std::string::npos ||
               GetNames(font).inLowerCase.find(word) != std::string::npos;
    });
}

}  // namespace plugincore
