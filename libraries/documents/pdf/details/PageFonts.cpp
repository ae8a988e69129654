#include "documents/pdf/details/PageFonts.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "base/Utf8.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/model/FontName.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/PdfFile.h"  // IWYU pragma: keep
#include "documents/pdf/PdfFont.h"
#include "documents/pdf/quick/QuickFile.h"  // IWYU pragma: keep

namespace documents {

namespace {

template <class Object>
bool HasSubsetPrefix(Object font)
{
    Object value = GetKeyOrNull(font, "/BaseFont");
    if (!value.isName()) return false;
    const std::string name = value.getName().substr(1);
    return StripSubsetPrefix(name) != CutFontName(name);
}

template <class Object>
Embedding GetEmbedding(Object font)
{
    Object described = font;
    Object descendants = GetKeyOrNull(font, "/DescendantFonts");
    if (descendants.isArray() && descendants.getArrayNItems() > 0) {
        described = descendants.getArrayItem(0);
    }
    Object descriptor = GetKeyOrNull(described, "/FontDescriptor");
    for (const char* key : {"/FontFile", "/FontFile2", "/FontFile3"}) {
        if (!GetKeyOrNull(descriptor, key).isStream()) continue;
        return HasSubsetPrefix(font) || HasSubsetPrefix(described) ? Embedding::kSubset
                                                                   : Embedding::kWhole;
    }
    return Embedding::kNo;
}

// Walks the resources without recursion: a file can nest forms as deeply as it likes.
template <class File>
class Search {
public:
    using Object = typename File::Object;

    std::vector<PageFont> Run(File& file)
    {
        for (const Object& page : file.GetPages()) {
            Add(File::GetResources(page));
            while (!mTodo.empty()) {
                Object resources = mTodo.back();
                mTodo.pop_back();
                AddFonts(GetKeyOrNull(resources, "/Font"));
                AddStreams(GetKeyOrNull(resources, "/XObject"));
                AddStreams(GetKeyOrNull(resources, "/Pattern"));
            }
        }
        return std::move(mFonts);
    }

private:
    void Add(Object resources)
    {
        ReadBudget::Take(0);
        if (!resources.isDictionary()) return;
        if (resources.isIndirect() && !mSeen.insert(resources.getObjGen()).second) return;
        mTodo.push_back(resources);
    }

    void AddStreams(Object streams)
    {
        if (!streams.isDictionary()) return;
        for (const std::string& key : streams.getKeys()) {
            Object stream = streams.getKey(key);
            if (!stream.isStream() || !mSeen.insert(stream.getObjGen()).second) continue;
            Add(stream.getDict().getKey("/Resources"));
        }
    }

    void AddFonts(Object fonts)
    {
        if (!fonts.isDictionary()) return;
        for (const std::string& key : fonts.getKeys()) {
            Object font = fonts.getKey(key);
            if (!font.isDictionary()) continue;
            if (font.isIndirect() && !mSeen.insert(font.getObjGen()).second) continue;
            const PdfFont<Object> read = ReadPdfFont(font);
            if (!read.isNamed || !IsFontName(read.name)) continue;
            const Embedding embedding = GetEmbedding(font);
            const std::string name = base::ToValidUtf8(read.name);
            const auto [place, isNew] = mPlaces.emplace(name, mFonts.size());
            if (isNew) {
                mFonts.push_back({name, embedding});
            } else {
                Embedding& known = mFonts[place->second].embedding;
                known = std::min(known, embedding);
            }
        }
    }

    std::vector<Object> mTodo;
    std::set<QPDFObjGen> mSeen;
    std::map<std::string, size_t> mPlaces;
    std::vector<PageFont> mFonts;
};

}  // namespace

template <class File>
std::vector<PageFont> ReadPageFonts(File& file)
{
    return Search<File>().Run(file);
}

template std::vector<PageFont> ReadPageFonts(PdfFile& file);
template std::vector<PageFont> ReadPageFonts(QuickFile& file);

}  // namespace documents
