#include "fonts/ActiveFonts.h"

#include <fontconfig/fontconfig.h>
#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "fonts/FontFaces.h"
#include "fonts/FontconfigMessages.h"

namespace fonts {
namespace {

using Config = std::unique_ptr<FcConfig, void (*)(FcConfig*)>;
using Pattern = std::unique_ptr<FcPattern, void (*)(FcPattern*)>;
using FontSet = std::unique_ptr<FcFontSet, void (*)(FcFontSet*)>;
using ObjectSet = std::unique_ptr<FcObjectSet, void (*)(FcObjectSet*)>;

// The process-wide configuration belongs to the host, which may not expect it to change.
Config LoadConfig()
{
    FcConfig* config = nullptr;
    CollectFontconfigMessages([&config] { config = FcInitLoadConfigAndFonts(); });
    return {config, FcConfigDestroy};
}

std::string GetText(const FcPattern* pattern, const char* object)
{
    FcChar8* text = nullptr;
    if (FcPatternGetString(pattern, object, 0, &text) != FcResultMatch || !text) return {};
    return reinterpret_cast<const char*>(text);
}

int GetIndex(const FcPattern* pattern)
{
    int index = 0;
    return FcPatternGetInteger(pattern, FC_INDEX, 0, &index) == FcResultMatch ? index : 0;
}

bool IsOfVariableFont(const FcPattern* pattern)
{
    FcBool variable = FcFalse;
    const bool isKnown = FcPatternGetBool(pattern, FC_VARIABLE, 0, &variable) == FcResultMatch;
    return (isKnown && variable) || (GetIndex(pattern) >> 16) != 0;
}

// A cache of the names in variable font files: reading a file takes much longer than listing it.
// Thread-safe.
class VariableFontNames {
public:
    std::vector<FontFace> Get(const std::string& file)
    {
        struct stat status = {};
        if (stat(file.c_str(), &status) != 0) return {};
        const std::lock_guard<std::mutex> lock(mMutex);
        Entry& entry = mEntries[file];
        if (!entry.IsOf(status)) {
            FontFaces content = ReadFontFaces(file);
            entry.faces = std::move(content.faces);
            // With more memory the file may be readable.
            if (content.lacksMemory) return entry.faces;
            entry.inode = status.st_ino;
            entry.size = status.st_size;
            entry.modified = status.st_mtim;
        }
        return entry.faces;
    }

private:
    struct Entry {
        ino_t inode = 0;
        off_t size = -1;
        timespec modified = {};
        std::vector<FontFace> faces;

        bool IsOf(const struct stat& status) const
        {
            return inode == status.st_ino && size == status.st_size &&
                   modified.tv_sec == status.st_mtim.tv_sec &&
                   modified.tv_nsec == status.st_mtim.tv_nsec;
        }
    };
    std::mutex mMutex;
    std::map<std::string, Entry> mEntries;
};

VariableFontNames& GetVariableFontNames()
{
    static VariableFontNames names;
    return names;
}

FontSet ListFonts(FcConfig* config)
{
    const Pattern all(FcPatternCreate(), FcPatternDestroy);
    const ObjectSet objects(FcObjectSetBuild(FC_POSTSCRIPT_NAME, FC_FILE, FC_INDEX, FC_VARIABLE,
                                             static_cast<char*>(nullptr)),
                            FcObjectSetDestroy);
    if (!all || !objects) return {nullptr, FcFontSetDestroy};
    return {FcFontList(config, all.get(), objects.get()), FcFontSetDestroy};
}

std::vector<ActiveFont> ListThrowing()
{
    const Config config = LoadConfig();
    if (!config) return {};
    const FontSet set = ListFonts(config.get());
    std::vector<ActiveFont> result;
    std::set<std::string> variableFiles;
    for (int position = 0; set && position < set->nfont; ++position) {
        const FcPattern* pattern = set->fonts[position];
        const std::string file = GetText(pattern, FC_FILE);
        if (IsOfVariableFont(pattern)) {
            variableFiles.insert(file);
            continue;
        }
        const std::string name = GetText(pattern, FC_POSTSCRIPT_NAME);
        if (!name.empty()) result.push_back({name, file, GetIndex(pattern)});
    }
    for (const std::string& file : variableFiles) {
        for (const FontFace& face : GetVariableFontNames().Get(file)) {
            result.push_back({face.postScriptName, file, face.index});
        }
    }
    return result;
}

Pattern MatchDefault(FcConfig* config, const std::string& language)
{
    const Pattern wanted(FcPatternCreate(), FcPatternDestroy);
    if (!wanted) return {nullptr, FcPatternDestroy};
    if (!language.empty()) {
        FcPatternAddString(wanted.get(), FC_LANG,
                           reinterpret_cast<const FcChar8*>(language.c_str()));
    }
    FcConfigSubstitute(config, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult outcome = FcResultNoMatch;
    return {FcFontMatch(config, wanted.get(), &outcome), FcPatternDestroy};
}

// For a variable font that fontconfig adapted to the request, fontconfig makes up an index that no
// named instance has. The name of the face is returned then.
std::string GetNameInFile(const std::string& file, int index)
{
    std::string ofFace;
    for (const FontFace& face : GetVariableFontNames().Get(file)) {
        if (face.index == index) return face.postScriptName;
        if (face.index == (index & 0xffff)) ofFace = face.postScriptName;
    }
    return ofFace;
}

std::string GetDefaultThrowing(const std::string& language)
{
    const Config config = LoadConfig();
    if (!config) return {};
    const Pattern match = MatchDefault(config.get(), language);
    if (!match) return {};
    if (IsOfVariableFont(match.get())) {
        return GetNameInFile(GetText(match.get(), FC_FILE), GetIndex(match.get()));
    }
    return GetText(match.get(), FC_POSTSCRIPT_NAME);
}

void RescanThrowing(const std::string& folder)
{
    const Config config = LoadConfig();
    if (!config) return;
    const auto rescan = [&config](const std::string& path) {
        const auto* const text = reinterpret_cast<const FcChar8*>(path.c_str());
        // Not FcDirCacheRescan, which keeps the cached fonts and only reads the subfolders again.
        FcCache* const cache = FcDirCacheRead(text, FcTrue, config.get());
        if (cache) FcDirCacheUnload(cache);
    };
    rescan(folder);
    std::error_code error;
    std::filesystem::recursive_directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::recursive_directory_iterator();
         entry.increment(error)) {
        std::error_code noStatus;
        if (entry->is_directory(noStatus)) rescan(entry->path());
    }
}

}  // namespace

std::vector<ActiveFont> ListActiveFonts()
{
    try {
        return ListThrowing();
    } catch (const std::exception&) {
        return {};
    }
}

void RescanFolder(const std::string& folder)
{
    try {
        RescanThrowing(folder);
    } catch (const std::exception&) {
        // Fontconfig keeps its caches; the caller checks what it lists.
    }
}

std::set<std::string> GetActiveFontNames()
{
    std::set<std::string> names;
    for (const ActiveFont& font : ListActiveFonts()) names.insert(font.postScriptName);
    return names;
}

std::string GetDefaultFontName(const std::string& language)
{
    try {
        return GetDefaultThrowing(language);
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace fonts
