#include "documents/pdf/details/PageFonts.h"

#include <algorithm>
#include <map>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <set>
#include <string>
#include <utility>

#include "base/Utf8.h"
#include "documents/bytes/ReadBudget.h"
#include "documents/model/FontName.h"
#include "documents/pdf/PdfDictionary.h"
#include "documents/pdf/PdfFont.h"

namespace documents {

namespace {

bool HasSubsetPrefix(QPDFObjectHandle font)
{
    QPDFObjectHandle value = GetKeyOrNull(font, "/BaseFont");
    if (!value.isName()) return false;
    const std::string name = value.getName().substr(1);
    return StripSubsetPrefix(name) != CutFontName(name);
}

Embedding GetEmbedding(QPDFObjectHandle font)
{
    QPDFObjectHandle described = font;
    QPDFObjectHandle descendants = GetKeyOrNull(font, "/DescendantFonts");
    if (descendants.isArray() && descendants.getArrayNItems() > 0) {
        described = descendants.getArrayItem(0);
    }
    QPDFObjectHandle descriptor = GetKeyOrNull(described, "/FontDescriptor");
    for (const char* key : {"/FontFile", "/FontFile2", "/FontFile3"}) {
        if (!GetKeyOrNull(descriptor, key).isStream()) continue;
        return HasSubsetPrefix(font) || HasSubsetPrefix(described) ? Embedding::kSubset
                                                                   : Embedding::kWhole;
    }
    return Embedding::kNo;
}

// Walks the resources without recursion: a file can nest forms as deeply as it likes.
class Search {
public:
    std::vector<PageFont> Run(PdfFile& file)
    {
        for (const QPDFObjectHandle& page : file.GetPages()) {
            Add(QPDFPageObjectHelper(page).getAttribute("/Resources", /*copy_if_shared=*/false));
            while (!mTodo.empty()) {
                QPDFObjectHandle resources = mTodo.back();
                mTodo.pop_back();
                AddFonts(GetKeyOrNull(resources, "/Font"));
                AddStreams(GetKeyOrNull(resources, "/XObject"));
                AddStreams(GetKeyOrNull(resources, "/Pattern"));
            }
        }
        return std::move(mFonts);
    }

private:
    void Add(QPDFObjectHandle resources)
    {
        ReadBudget::Take(0);
        if (!resources.isDictionary()) return;
        if (resources.isIndirect() && !mSeen.insert(resources.getObjGen()).second) return;
        mTodo.push_back(resources);
    }

    void AddStreams(QPDFObjectHandle streams)
    {
        if (!streams.isDictionary()) return;
        for (const std::string& key : streams.getKeys()) {
            QPDFObjectHandle stream = streams.getKey(key);
            if (!stream.isStream() || !mSeen.insert(stream.getObjGen()).second) continue;
            Add(stream.getDict().getKey("/Resources"));
        }
    }

    void AddFonts(QPDFObjectHandle fonts)
    {
        if (!fonts.isDictionary()) return;
        for (const std::string& key : fonts.getKeys()) {
            QPDFObjectHandle font = fonts.getKey(key);
            if (!font.isDictionary()) continue;
            if (font.isIndirect() && !mSeen.insert(font.getObjGen()).second) continue;
            const PdfFont read = ReadPdfFont(font);
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

    std::vector<QPDFObjectHandle> mTodo;
    std::set<QPDFObjGen> mSeen;
    std::map<std::string, size_t> mPlaces;
    std::vector<PageFont> mFonts;
};

}  // namespace

std::vector<PageFont> ReadPageFonts(PdfFile& file) { return Search().Run(file); }

}  // namespace documents
