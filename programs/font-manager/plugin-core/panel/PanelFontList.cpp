#include "plugin-core/panel/PanelFontList.h"

#include <algorithm>

#include "base/Strings.h"
#include "plugin-core/panel/PanelFontFile.h"

namespace plugincore {
namespace {

bool IsForBrowsers(const std::string& path, bool isType1)
{
    return !isType1 && !base::EndsWith(base::ToLower(path), ".dfont");
}

// The order is that of FontLibrary::Find.
std::string MakeQuery(size_t folders)
{
    std::string parameters;
    for (size_t count = 0; count < folders; ++count) parameters += count == 0 ? "?" : ",?";
    return "SELECT name, path, file_id, face_index, modified, is_type1, family, style FROM ("
           "SELECT name, path, font_file.id AS file_id, face_index, modified, is_type1, family,"
           " style,"
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
        if (IsForBrowsers(statement.GetText(1), statement.GetNumber(5) != 0)) {
            font.id = MakePanelFontId(statement.GetNumber(2), statement.GetNumber(3),
                                      statement.GetNumber(4));
        }
        font.family = statement.GetText(6);
        font.style = statement.GetText(7);
        font.nameInLowerCase = base::ToLower(font.postScriptName);
        font.familyInLowerCase = base::ToLower(font.family + " " + font.style);
        mFonts.push_back(std::move(font));
    }
    mKey = std::move(key);
    return mFonts;
}

bool Matches(const PanelFont& font, const std::vector<std::string>& words)
{
    return std::all_of(words.begin(), words.end(), [&font](const std::string& word) {
        return font.nameInLowerCase.find(word) != std::string::npos ||
               font.familyInLowerCase.find(word) != std::string::npos;
    });
}

}  // namespace plugincore
