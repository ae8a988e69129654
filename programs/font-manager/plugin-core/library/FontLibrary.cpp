#include "plugin-core/library/FontLibrary.h"

#include <algorithm>
#include <cstddef>

#include "base/Files.h"
#include "plugin-core/library/FontFiles.h"

namespace plugincore {
namespace {

// The modification time of a file that the next Refresh reads again, changed or not.
constexpr int64_t kReadAgain = -1;

// Of a folder: what was read of more is stored first, to keep memory small.
constexpr size_t kFilesAtOnce = 20000;

std::vector<fonts::FontFaces> ReadFiles(const std::vector<FontFileState>& files)
{
    std::vector<std::string> paths;
    paths.reserve(files.size());
    for (const FontFileState& file : files) paths.push_back(file.path);
    return fonts::ReadFontFacesOfFiles(paths);
}

void Store(Database& database, const std::string& folder, const std::vector<FontFileState>& files,
           const std::vector<fonts::FontFaces>& contents)
{
    Statement addFile(database,
                      "INSERT OR REPLACE INTO font_file(library, path, modified, size, problem)"
                      " VALUES(?, ?, ?, ?, ?) RETURNING id");
    Statement addFace(database,
                      "INSERT INTO font_face(file, name, face_index, is_type1, family, style,"
                      " weight, format) VALUES(?, ?, ?, ?, ?, ?, ?, ?)");
    for (size_t position = 0; position < files.size(); ++position) {
        const fonts::FontFaces& content = contents[position];
        const int64_t modified = content.lacksMemory ? kReadAgain : files[position].modified;
        addFile.Bind(folder).Bind(files[position].path).Bind(modified);
        addFile.Bind(files[position].size).Bind(content.problem);
        const int64_t id = addFile.Step() ? addFile.GetNumber(0) : 0;
        addFile.Run();
        for (const fonts::FontFace& face : content.faces) {
            addFace.Bind(id).Bind(face.postScriptName).Bind(static_cast<int64_t>(face.index));
            addFace.Bind(static_cast<int64_t>(face.isType1)).Bind(face.family).Bind(face.style);
            addFace.Bind(static_cast<int64_t>(face.weight)).Bind(face.format).Run();
        }
    }
}

// The faces with their files. Followed by conditions.
constexpr const char* kFromFaces =
    " FROM font_face JOIN font_file ON font_file.id = font_face.file WHERE ";

// A condition with a parameter for each folder. Paths are bound byte for byte: they needn't be
// UTF-8.
std::string MakeInFolders(const std::vector<std::string>& folders)
{
    std::string parameters;
    for (size_t count = 0; count < folders.size(); ++count) parameters += count == 0 ? "?" : ",?";
    return "library IN (" + parameters + ")";
}

void BindAll(Statement& statement, const std::vector<std::string>& texts)
{
    for (const std::string& text : texts) statement.Bind(text);
}

// The file is below a folder, or anywhere if the prefix is "". See BindBelow.
constexpr const char* kBelow = "(substr(path, 1, length(?)) = ?)";

void BindBelow(Statement& statement, const std::string& folder)
{
    const std::string prefix = folder.empty() ? folder : folder + "/";
    statement.Bind(prefix).Bind(prefix);
}

// Of a row of FindPresent.
fonts::FontFace ReadFace(const Statement& row, const std::string& postScriptName)
{
    fonts::FontFace face;
    face.postScriptName = postScriptName;
    face.index = static_cast<int>(row.GetNumber(3));
    face.isType1 = row.GetNumber(4) != 0;
    face.family = row.GetText(6);
    face.style = row.GetText(7);
    face.weight = static_cast<int>(row.GetNumber(8));
    face.format = row.GetText(9);
    return face;
}

std::vector<std::string> GetTexts(Statement& statement)
{
    std::vector<std::string> texts;
    while (statement.Step()) texts.push_back(statement.GetText(0));
    return texts;
}

}  // namespace

FontLibrary::FontLibrary(Database& database, std::vector<std::string> folders)
    : mDatabase(database), mFolders(std::move(folders))
{
}

// Reads the whole table in its order, once for all folders: to find the rows of each folder by an
// index takes longer, and most rows are needed.
std::map<std::string, FontLibrary::KnownFiles> FontLibrary::LoadKnownFiles()
{
    std::map<std::string, KnownFiles> known;
    for (const std::string& folder : mFolders) known[folder];
    Statement statement(mDatabase, "SELECT library, path, id, modified, size FROM font_file");
    while (statement.Step()) {
        const auto folder = known.find(statement.GetText(0));
        if (folder == known.end()) continue;
        folder->second.emplace(
            statement.GetText(1),
            KnownFile{statement.GetNumber(2), statement.GetNumber(3), statement.GetNumber(4)});
    }
    return known;
}

void FontLibrary::Refresh()
{
    mFilesRead = 0;
    mFilesGone = 0;
    for (auto& [folder, known] : LoadKnownFiles()) {
        RefreshFolder(folder, std::move(known));
    }
}

// `gone` are the files of the folder in the index.
void FontLibrary::RefreshFolder(const std::string& folder, KnownFiles gone)
{
    std::vector<FontFileState> changed;
    for (FontFileState& state : ListFontFiles(folder)) {
        const auto known = gone.find(state.path);
        const bool isSame = known != gone.end() && known->second.modified == state.modified &&
                            known->second.size == state.size;
        if (known != gone.end()) gone.erase(known);
        if (!isSame) changed.push_back(std::move(state));
    }
    mFilesRead += static_cast<int64_t>(changed.size());
    mFilesGone += static_cast<int64_t>(gone.size());
    if (changed.empty() && gone.empty()) return;
    size_t first = 0;
    do {
        const size_t count = std::min(kFilesAtOnce, changed.size() - first);
        const auto begin = changed.begin() + static_cast<std::ptrdiff_t>(first);
        const std::vector<FontFileState> part(begin, begin + static_cast<std::ptrdiff_t>(count));
        // Files are read before the transaction, so that other processes don't wait for it.
        const std::vector<fonts::FontFaces> contents = ReadFiles(part);
        Transaction transaction(mDatabase);
        // Together with the first files: one that was moved is never missing.
        if (first == 0) RemoveGone(gone);
        Store(mDatabase, folder, part, contents);
        transaction.Commit();
        first += count;
    } while (first < changed.size());
}

void FontLibrary::RemoveGone(const KnownFiles& gone)
{
    // Rows that another process has changed since then are newer, and no longer match.
    Statement remove(mDatabase,
                     "DELETE FROM font_file"
                     " WHERE id = ? AND path = ? AND modified = ? AND size = ?");
    for (const auto& [path, file] : gone) {
        remove.Bind(file.id).Bind(path).Bind(file.modified).Bind(file.size).Run();
    }
}

std::optional<std::string> FontLibrary::FindIn(const std::string& folder, const std::string& name)
{
    Statement statement(mDatabase, std::string("SELECT path") + kFromFaces + "name = ? AND " +
                                       MakeInFolders(mFolders) + " AND " + kBelow +
                                       " ORDER BY is_type1, modified DESC, path LIMIT 1");
    statement.Bind(name);
    BindAll(statement, mFolders);
    BindBelow(statement, folder);
    if (!statement.Step()) return std::nullopt;
    return statement.GetText(0);
}

std::optional<std::string> FontLibrary::Find(const std::string& postScriptName)
{
    return FindIn(mSelection, postScriptName);
}

// One statement for all names: compiling it takes much longer than a look-up.
std::vector<std::string> FontLibrary::SelectKnown(const std::vector<std::string>& postScriptNames)
{
    Statement statement(mDatabase, std::string("SELECT 1") + kFromFaces + "name = ? AND " +
                                       MakeInFolders(mFolders) + " AND " + kBelow + " LIMIT 1");
    std::vector<std::string> known;
    for (const std::string& name : postScriptNames) {
        statement.Bind(name);
        BindAll(statement, mFolders);
        BindBelow(statement, mSelection);
        if (statement.Step()) known.push_back(name);
        statement.Reset();
    }
    return known;
}

std::optional<std::string> FontLibrary::FindAnywhere(const std::string& postScriptName)
{
    return FindIn("", postScriptName);
}

std::vector<std::string> FontLibrary::ListFiles(const std::string& postScriptName)
{
    Statement statement(mDatabase, std::string("SELECT path") + kFromFaces + "name = ? AND " +
                                       MakeInFolders(mFolders) +
                                       " GROUP BY path"
                                       " ORDER BY MIN(is_type1), MAX(modified) DESC, path");
    statement.Bind(postScriptName);
    BindAll(statement, mFolders);
    return GetTexts(statement);
}

std::optional<FontLibrary::PresentFace> FontLibrary::FindPresent(const std::string& postScriptName)
{
    const bool knowsFamilies = mDatabase.GetVersion() >= Database::kVersionWithFamilies;
    const std::string details =
        knowsFamilies ? "family IS NOT NULL, family, style, weight, format" : "0, '', '', 0, ''";
    Statement statement(mDatabase, "SELECT path, modified, size, face_index, is_type1, " + details +
                                       kFromFaces + "name = ? AND " + MakeInFolders(mFolders) +
                                       " ORDER BY is_type1, modified DESC, path, font_face.rowid");
    statement.Bind(postScriptName);
    BindAll(statement, mFolders);
    while (statement.Step()) {
        const std::string path = statement.GetText(0);
        const std::optional<FontFileState> now = LookAtFontFile(path);
        if (!now || !base::IsReadableFile(path)) continue;
        const bool isSame =
            now->modified == statement.GetNumber(1) && now->size == statement.GetNumber(2);
        if (isSame && statement.GetNumber(5) != 0) {
            return PresentFace{path, ReadFace(statement, postScriptName)};
        }
        for (const fonts::FontFace& face : fonts::ReadFontFaces(path).faces) {
            if (face.postScriptName == postScriptName) return PresentFace{path, face};
        }
    }
    return std::nullopt;
}

std::optional<fonts::FaceNames> FontLibrary::FindFaceNames(const std::string& path,
                                                           const std::string& postScriptName)
{
    Statement statement(mDatabase, std::string("SELECT family, style") + kFromFaces +
                                       "path = ? AND name = ? AND family IS NOT NULL AND " +
                                       MakeInFolders(mFolders) +
                                       " ORDER BY font_face.rowid LIMIT 1");
    statement.Bind(path).Bind(postScriptName);
    BindAll(statement, mFolders);
    if (!statement.Step()) return std::nullopt;
    return fonts::FaceNames{statement.GetText(0), statement.GetText(1)};
}

std::vector<std::string> FontLibrary::ListSimilarNames(const std::string& postScriptName)
{
    const auto simplify = [](const char* text) {
        return std::string("lower(replace(replace(") + text + ", '-', ''), ' ', ''))";
    };
    Statement statement(mDatabase, std::string("SELECT DISTINCT name") + kFromFaces +
                                       MakeInFolders(mFolders) + " AND name <> ? AND " +
                                       simplify("name") + " = " + simplify("?") + " ORDER BY name");
    BindAll(statement, mFolders);
    statement.Bind(postScriptName).Bind(postScriptName);
    return GetTexts(statement);
}

std::vector<FontLibrary::BadFile> FontLibrary::ListBadFiles()
{
    Statement statement(mDatabase, std::string("SELECT DISTINCT path, problem FROM font_file"
                                               " WHERE problem <> '' AND ") +
                                       MakeInFolders(mFolders) + " ORDER BY path");
    BindAll(statement, mFolders);
    std::vector<BadFile> files;
    while (statement.Step()) files.push_back({statement.GetText(0), statement.GetText(1)});
    return files;
}

std::vector<std::string> FontLibrary::ListNames(const std::string& folder, int64_t offset,
                                                int64_t limit)
{
    Statement statement(mDatabase, std::string("SELECT DISTINCT name") + kFromFaces +
                                       MakeInFolders(mFolders) + " AND " + kBelow +
                                       " ORDER BY name LIMIT ? OFFSET ?");
    BindAll(statement, mFolders);
    BindBelow(statement, folder);
    statement.Bind(limit).Bind(offset);
    return GetTexts(statement);
}

std::vector<FontLibrary::NamedFile> FontLibrary::ListNamedFiles()
{
    Statement statement(mDatabase, std::string("SELECT name, path") + kFromFaces +
                                       MakeInFolders(mFolders) + " ORDER BY name, NOT " + kBelow +
                                       ", is_type1, modified DESC, path");
    BindAll(statement, mFolders);
    BindBelow(statement, mSelection);
    std::vector<NamedFile> files;
    while (statement.Step()) {
        std::string name = statement.GetText(0);
        // The first file of each name is the one to use.
        if (!files.empty() && files.back().postScriptName == name) continue;
        files.push_back({std::move(name), statement.GetText(1)});
    }
    return files;
}

int64_t FontLibrary::CountNames(const std::string& folder)
{
    Statement statement(mDatabase, std::string("SELECT COUNT(DISTINCT name)") + kFromFaces +
                                       MakeInFolders(mFolders) + " AND " + kBelow);
    BindAll(statement, mFolders);
    BindBelow(statement, folder);
    return statement.Step() ? statement.GetNumber(0) : 0;
}

std::vector<std::string> FontLibrary::GetNamesInFile(const std::string& path)
{
    Statement statement(mDatabase, std::string("SELECT DISTINCT name") + kFromFaces + "path = ?");
    statement.Bind(path);
    return GetTexts(statement);
}

int64_t FontLibrary::CountRows(const std::string& selectFromWhere)
{
    Statement statement(mDatabase, selectFromWhere + MakeInFolders(mFolders));
    BindAll(statement, mFolders);
    return statement.Step() ? statement.GetNumber(0) : 0;
}

FontLibrary::Counts FontLibrary::GetCounts()
{
    Counts counts;
    counts.files = CountRows("SELECT COUNT(*) FROM font_file WHERE problem = '' AND ");
    counts.badFiles = CountRows("SELECT COUNT(*) FROM font_file WHERE problem <> '' AND ");
    counts.names = CountRows(std::string("SELECT COUNT(DISTINCT name)") + kFromFaces);
    counts.filesRead = mFilesRead;
    counts.filesGone = mFilesGone;
    return counts;
}

}  // namespace plugincore
