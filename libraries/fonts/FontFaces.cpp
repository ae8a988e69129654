#include "fonts/FontFaces.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_FONT_FORMATS_H
#include FT_MODULE_H
#include FT_MULTIPLE_MASTERS_H
#include FT_SFNT_NAMES_H
#include FT_SYSTEM_H
#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <atomic>
#include <cctype>
#include <cstdlib>
#include <memory>
#include <new>
#include <thread>

#include "fonts/MappedFile.h"

namespace fonts {
namespace {

// A damaged header can claim any number of faces; real collections have a few dozen.
constexpr FT_Long kMostFaces = 1024;
constexpr FT_UInt kMostInstances = 4096;

using Library = std::unique_ptr<FT_LibraryRec_, FT_Error (*)(FT_Library)>;
using Face = std::unique_ptr<FT_FaceRec_, FT_Error (*)(FT_Face)>;

std::string GetReason(FT_Error error)
{
    const char* text = FT_Error_String(error);
    if (text) return text;
    if (error == FT_Err_Unknown_File_Format) return "not a font, or damaged";
    return "damaged (FreeType error " + std::to_string(error) + ")";
}

// Memory for FreeType that records whether it ran out: FreeType may take a font whose table it
// cannot load for one of another format, or for one without that table. Must not move.
class Memory {
public:
    Memory() : mFunctions{this, Allocate, Free, Reallocate} {}
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;

    FT_Memory Get() { return &mFunctions; }
    bool HasFailed() const { return mHasFailed; }

private:
    static void* Check(FT_Memory memory, void* block)
    {
        if (!block) static_cast<Memory*>(memory->user)->mHasFailed = true;
        return block;
    }
    // FreeType asks for at least one byte.
    static void* Allocate(FT_Memory memory, long size)
    {
        return Check(memory, std::malloc(static_cast<size_t>(size)));
    }
    static void Free(FT_Memory, void* block) { std::free(block); }
    static void* Reallocate(FT_Memory memory, long, long size, void* block)
    {
        return Check(memory, std::realloc(block, static_cast<size_t>(size)));
    }

    FT_MemoryRec_ mFunctions;
    bool mHasFailed = false;
};

Face OpenFace(FT_Library library, const MappedFile& file, FT_Long index, FT_Error& error)
{
    FT_Face face = nullptr;
    error = FT_New_Memory_Face(library, file.GetBytes(), static_cast<FT_Long>(file.GetSize()),
                               index, &face);
    return Face(error == FT_Err_Ok ? face : nullptr, FT_Done_Face);
}

// Returns the letters and digits of the English entry `id` of the name table, and those of its
// characters that are in `also`. Returns "" if there is no such entry.
std::string GetPlainText(FT_Face face, FT_UInt id, const std::string& also = {})
{
    constexpr FT_UShort kWindows = 3;
    constexpr FT_UShort kEnglish = 0x0009;
    constexpr FT_UShort kPrimaryLanguage = 0x03ff;
    for (FT_UInt position = 0; position < FT_Get_Sfnt_Name_Count(face); ++position) {
        FT_SfntName entry = {};
        if (FT_Get_Sfnt_Name(face, position, &entry) != FT_Err_Ok) continue;
        if (entry.name_id != id || entry.platform_id != kWindows ||
            (entry.language_id & kPrimaryLanguage) != kEnglish) {
            continue;
        }
        std::string text;
        for (FT_UInt byte = 0; byte + 1 < entry.string_len; byte += 2) {
            const FT_Byte low = entry.string[byte + 1];
            if (entry.string[byte] != 0 || low >= 0x80) continue;
            if (std::isalnum(low) != 0 || also.find(static_cast<char>(low)) != std::string::npos) {
                text += static_cast<char>(low);
            }
        }
        if (!text.empty()) return text;
    }
    return {};
}

// The start of the names of instances. Call this before asking FreeType for the name of an
// instance, which removes a family name that contains a space from FreeType's table.
std::string GetInstancePrefix(FT_Face face)
{
    constexpr FT_UInt kPrefixIds[] = {25, 16, 1};  // prefix for variations, and the two families
    for (const FT_UInt id : kPrefixIds) {
        std::string prefix = GetPlainText(face, id);
        if (!prefix.empty()) return prefix;
    }
    return {};
}

// Makes the PostScript name of an instance as the OpenType specification says: the name that the
// instance has, or else prefix and style name. FreeType returns no name if the prefix contains a
// space.
std::string MakeInstanceName(FT_Face face, const std::string& prefix,
                             const FT_Var_Named_Style& style)
{
    constexpr FT_UInt kNoName = 0xffff;
    if (style.psid != kNoName) return GetPlainText(face, style.psid, "-_.");
    const std::string styleName = GetPlainText(face, style.strid);
    return prefix.empty() || styleName.empty() ? std::string() : prefix + "-" + styleName;
}

int GetWeight(FT_Face face)
{
    constexpr int kRegular = 400;
    constexpr int kBold = 700;
    constexpr FT_UShort kNoTable = 0xffff;
    const auto* const os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (os2 && os2->version != kNoTable && os2->usWeightClass != 0) return os2->usWeightClass;
    return (face->style_flags & FT_STYLE_FLAG_BOLD) != 0 ? kBold : kRegular;
}

// The place of an instance on the weight axis; `fallback` if the font has no such axis.
int GetWeightOfInstance(const FT_MM_Var& axes, const FT_Var_Named_Style& style, int fallback)
{
    constexpr FT_ULong kWeightAxis = FT_MAKE_TAG('w', 'g', 'h', 't');
    for (FT_UInt axis = 0; axis < axes.num_axis; ++axis) {
        if (axes.axis[axis].tag == kWeightAxis) {
            return static_cast<int>(FT_RoundFix(style.coords[axis]) >> 16);
        }
    }
    return fallback;
}

void AddName(const std::string& name, FT_Face face, FT_Long index, int weight, FontFaces& result)
{
    const auto isSame = [&](const FontFace& other) {
        return other.postScriptName == name && (other.index & 0xffff) == (index & 0xffff);
    };
    if (name.empty() || std::any_of(result.faces.begin(), result.faces.end(), isSame)) return;
    const auto getText = [](const char* text) { return std::string(text ? text : ""); };
    FontFace found;
    found.postScriptName = name;
    found.index = static_cast<int>(index);
    found.format = getText(FT_Get_Font_Format(face));
    found.isType1 = found.format == "Type 1";
    found.family = getText(face->family_name);
    found.style = getText(face->style_name);
    found.weight = weight;
    result.faces.push_back(std::move(found));
}

std::string GetName(FT_Face face)
{
    const char* name = FT_Get_Postscript_Name(face);
    return name ? name : "";
}

void AddInstances(FT_Library library, FT_Face face, FT_Long index, FontFaces& result)
{
    FT_MM_Var* read = nullptr;
    if (FT_Get_MM_Var(face, &read) != FT_Err_Ok) return;
    const auto release = [library](FT_MM_Var* axes) { (void)FT_Done_MM_Var(library, axes); };
    const std::unique_ptr<FT_MM_Var, decltype(release)> axes(read, release);
    const std::string prefix = GetInstancePrefix(face);
    const int weight = GetWeight(face);
    const auto count = std::min<FT_UInt>(axes->num_namedstyles, kMostInstances);
    for (FT_UInt instance = 1; instance <= count; ++instance) {
        if (FT_Set_Named_Instance(face, instance) != FT_Err_Ok) continue;
        std::string name = GetName(face);
        const FT_Var_Named_Style& style = axes->namedstyle[instance - 1];
        if (name.empty()) name = MakeInstanceName(face, prefix, style);
        AddName(name, face, (static_cast<FT_Long>(instance) << 16) | index,
                GetWeightOfInstance(*axes, style, weight), result);
    }
}

FontFaces ReadAll(FT_Library library, const MappedFile& file)
{
    FontFaces result;
    FT_Error firstError = FT_Err_Ok;
    FT_Long count = 1;
    for (FT_Long index = 0; index < count; ++index) {
        FT_Error error = FT_Err_Ok;
        const Face face = OpenFace(library, file, index, error);
        if (!face) {
            if (firstError == FT_Err_Ok) firstError = error;
            continue;
        }
        count = std::min(face->num_faces, kMostFaces);
        AddName(GetName(face.get()), face.get(), index, GetWeight(face.get()), result);
        if (FT_HAS_MULTIPLE_MASTERS(face.get())) AddInstances(library, face.get(), index, result);
    }
    if (result.faces.empty()) {
        result.problem =
            firstError == FT_Err_Ok ? "no face in it has a PostScript name" : GetReason(firstError);
    }
    return result;
}

FontFaces MakeLackOfMemory()
{
    FontFaces result;
    result.problem = "out of memory";
    result.lacksMemory = true;
    return result;
}

}  // namespace

// FreeType with all its modules.
class FontFaceReader::FreeType {
public:
    FreeType() : mLibrary(nullptr, FT_Done_Library)
    {
        FT_Library raw = nullptr;
        if (FT_New_Library(mMemory.Get(), &raw) != FT_Err_Ok) return;
        mLibrary.reset(raw);
        FT_Add_Default_Modules(raw);
        FT_Set_Default_Properties(raw);
    }

    // Once true, it remains so: a module may be missing.
    bool LacksMemory() const { return !mLibrary || mMemory.HasFailed(); }

    FontFaces Read(const MappedFile& file) { return ReadAll(mLibrary.get(), file); }

private:
    Memory mMemory;
    Library mLibrary;
};

FontFaceReader::FontFaceReader() = default;
FontFaceReader::~FontFaceReader() = default;

FontFaces FontFaceReader::Read(const std::string& path)
{
    try {
        const MappedFile file(path);
        if (file.LacksMemory()) return MakeLackOfMemory();
        if (file.GetError()) return {{}, file.GetError(), false};
        if (!mFreeType) mFreeType = std::make_unique<FreeType>();
        FontFaces result;
        if (!mFreeType->LacksMemory()) result = mFreeType->Read(file);
        if (!mFreeType->LacksMemory()) return result;
        mFreeType.reset();
        return MakeLackOfMemory();
    } catch (const std::bad_alloc&) {
        mFreeType.reset();
        return MakeLackOfMemory();
    } catch (const std::exception& failure) {
        return {{}, failure.what(), false};
    }
}

FontFaces ReadFontFaces(const std::string& path) { return FontFaceReader().Read(path); }

std::vector<FontFaces> ReadFontFacesOfFiles(const std::vector<std::string>& paths)
{
    // Few files are read before a thread has begun.
    constexpr size_t kFilesOfThread = 32;
    std::vector<FontFaces> results(paths.size());
    std::atomic<size_t> next = 0;
    const auto read = [&] {
        FontFaceReader reader;
        for (size_t file = next++; file < paths.size(); file = next++) {
            results[file] = reader.Read(paths[file]);
        }
    };
    const size_t most = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::thread> threads;
    while (threads.size() + 1 < std::min(most, paths.size() / kFilesOfThread)) {
        try {
            threads.emplace_back(read);
        } catch (const std::exception&) {
            break;  // no thread or memory for one: those that there are read all files
        }
    }
    read();
    for (std::thread& thread : threads) thread.join();
    return results;
}

}  // namespace fonts
