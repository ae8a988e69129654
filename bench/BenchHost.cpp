#include "BenchHost.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

#include "ArtTypes.h"
#include "BenchMenus.h"

namespace {

size_t sAllocations = 0;

}  // namespace

void* operator new(size_t size)
{
    ++sAllocations;
    if (void* const block = std::malloc(size)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept { std::free(block); }
void operator delete(void* block, size_t) noexcept { std::free(block); }

namespace bench_host {

namespace {

Document sDocument;
std::vector<AIArtHandle> sArt;
AIArtHandle* sArtArray = nullptr;

struct Iterator {
    int frame;
    int run;
} sIterator;

template <class Reference>
Reference* FromNumber(size_t number)
{
    return reinterpret_cast<Reference*>(number + 1);
}

size_t ToNumber(const void* reference) { return reinterpret_cast<uintptr_t>(reference) - 1; }

template <class Reference>
ATE::ATEErr Count(Reference*)
{
    return 0;
}

void SetImplementation(void* string, const void* value)
{
    std::memcpy(string, &value, sizeof value);
}

const char* GetText(const void* string)
{
    const char* text = nullptr;
    std::memcpy(&text, string, sizeof text);
    return text;
}

AIErr Initialize(ai::UnicodeString* string, const char* text, size_t, AICharacterEncoding)
{
    SetImplementation(string, strdup(text));
    return kHostSuccess;
}

AIErr Destroy(ai::UnicodeString* string)
{
    std::free(const_cast<char*>(GetText(string)));
    return kHostSuccess;
}

AIErr GetAs(const ai::UnicodeString& string, AICharacterEncoding, ai::UnicodeString::Buffer& buffer,
            unsigned long* count)
{
    const char* const text = GetText(&string);
    *count = text != nullptr ? std::strlen(text) : 0;
    if (*count == 0) return kHostSuccess;
    buffer = ai::UnicodeString::Buffer(*count);
    std::memcpy(buffer.GetBuffer(), text, *count);
    return kHostSuccess;
}

AIErr GetFullPath(const ai::FilePath&, bool, ai::UnicodeString& path)
{
    SetImplementation(&path, strdup(sDocument.path.c_str()));
    return kHostSuccess;
}

AIDocumentSuite sDocuments = {
    [](ai::FilePath& path) -> AIErr {
        SetImplementation(&path, &sDocument);
        return kHostSuccess;
    },
    [](bool* modified) -> AIErr {
        *modified = false;
        return kHostSuccess;
    },
    [](_t_AIDocument** document) -> AIErr {
        *document = reinterpret_cast<_t_AIDocument*>(&sDocument);
        return kHostSuccess;
    },
};
AIFilePathSuite sPaths = {[](ai::FilePath*) -> AIErr { return kHostSuccess; }, GetFullPath,
                          GetFullPath};
AIUnicodeStringSuite sStrings = {Initialize, Destroy, GetAs};
SPBlocksSuite sBlocks = {
    [](size_t size, const char*, void** block) -> AIErr {
        *block = std::malloc(size);
        return kHostSuccess;
    },
    [](void* block) -> AIErr {
        std::free(block);
        return kHostSuccess;
    },
};
AIMdMemorySuite sMemory = {[](void**) -> AIErr { return kHostSuccess; }};
AIMatchingArtSuite sMatching = {
    [](AIMatchingArtSpec* specs, int16_t, AIArtHandle*** matches, int32_t* count) -> AIErr {
        if (specs->type != kTextFrameArt) return kHostSuccess;
        *matches = &sArtArray;
        *count = static_cast<int32_t>(sArt.size());
        return kHostSuccess;
    }};
AIPlacedSuite sPlaced = {nullptr};
AITextFrameSuite sFrames = {
    [](AIArtHandle art, ATE::_TextRange** range) -> AIErr {
        *range = reinterpret_cast<ATE::_TextRange*>(art);
        return kHostSuccess;
    },
    nullptr,
};
AIFontSuite sFonts = {
    [](AIFaceScript, AIFontKey* key) -> AIErr {
        *key = nullptr;
        return kHostSuccess;
    },
    [](AIFontKey key, char* buffer, short size) -> AIErr {
        const char* const name =
            key == nullptr ? "HostSans-Regular" : sDocument.fonts[ToNumber(key)].c_str();
        std::strncpy(buffer, name, static_cast<size_t>(size) - 1);
        return kHostSuccess;
    },
    [](ATE::_Font* font, AIFontKey* key) -> AIErr {
        *key = font;
        return kHostSuccess;
    },
};
ATE::TextRangeSuite sRanges = {
    Count,
    Count,
    [](ATE::_TextRange* range, ATE::_TextRunsIterator** iterator) -> ATE::ATEErr {
        sIterator = {static_cast<int>(ToNumber(range)), 0};
        *iterator = reinterpret_cast<ATE::_TextRunsIterator*>(&sIterator);
        return 0;
    },
    [](ATE::_TextRange* range, ATE::_CharFeatures** features) -> ATE::ATEErr {
        *features = reinterpret_cast<ATE::_CharFeatures*>(range);
        return 0;
    },
};
ATE::TextRunsIteratorSuite sRuns = {
    Count,
    Count,
    [](ATE::_TextRunsIterator*, bool* isNotDone) -> ATE::ATEErr {
        *isNotDone = sIterator.run < sDocument.runsOfFrame;
        return 0;
    },
    [](ATE::_TextRunsIterator*) -> ATE::ATEErr {
        ++sIterator.run;
        return 0;
    },
    [](ATE::_TextRunsIterator*, ATE::_TextRange** run) -> ATE::ATEErr {
        *run = FromNumber<ATE::_TextRange>(
            static_cast<size_t>(sIterator.frame * sDocument.runsOfFrame + sIterator.run));
        return 0;
    },
};
ATE::CharFeaturesSuite sFeatures = {
    Count,
    Count,
    [](ATE::_CharFeatures* features, bool* isAssigned, ATE::_Font** font) -> ATE::ATEErr {
        if (isAssigned != nullptr) *isAssigned = true;
        *font = FromNumber<ATE::_Font>(ToNumber(features) % sDocument.fonts.size());
        return 0;
    },
};
ATE::FontSuite sTextFonts = {Count, Count, [](ATE::_Font*) { return false; }};

}  // namespace

void Use(const Document& document)
{
    sDocument = document;
    sArt.clear();
    for (int frame = 0; frame < document.frames; ++frame) {
        sArt.push_back(FromNumber<ArtObject>(static_cast<size_t>(frame)));
    }
    sArtArray = sArt.data();
    gDocumentSuite = &sDocuments;
    sAIFilePath = &sPaths;
    sAIUnicodeString = &sStrings;
    sSPBlocks = &sBlocks;
    sMdMemorySuite = &sMemory;
    sMatchingArt = &sMatching;
    sPlacedSuite = &sPlaced;
    sTextFrameSuite = &sFrames;
    gFontSuite = &sFonts;
    sTextRange = &sRanges;
    sTextRunsIterator = &sRuns;
    sCharFeatures = &sFeatures;
    sFont = &sTextFonts;
}

SPBasicSuite* GetBasicSuite()
{
    static SPBasicSuite sBasic = {
        [](const char* name, int, void* suite) -> AIErr {
            if (std::strcmp(name, "AI Menu Suite") != 0) return kHostBadParameter;
            *static_cast<AIMenuSuite**>(suite) = bench_menus::GetMenuSuite();
            return kHostSuccess;
        },
        [](const char*, int) -> AIErr { return kHostSuccess; },
        [](const char* a, const char* b) -> int { return std::strcmp(a, b) == 0; },
    };
    return &sBasic;
}

void WalkBare(void (*perRun)(const char* name))
{
    AIMatchingArtSpec spec(kTextFrameArt, 0, 0);
    AIArtHandle** matches = nullptr;
    int32_t count = 0;
    (void)sMatchingArt->GetMatchingArt(&spec, 1, &matches, &count);
    for (int32_t index = 0; index < count; ++index) {
        ATE::_TextRange* reference = nullptr;
        (void)sTextFrameSuite->GetATETextRange((*matches)[index], &reference);
        const ATE::ITextRange range(reference);
        ATE::ITextRunsIterator runs = range.GetTextRunsIterator();
        for (; runs.IsNotDone(); runs.Next()) {
            const ATE::ITextRange run = runs.Item();
            const ATE::ITextRange copy(run);
            bool isAssigned = false;
            const ATE::IFont font = copy.GetUniqueCharFeatures().GetFont(&isAssigned);
            AIFontKey key = nullptr;
            (void)gFontSuite->FontKeyFromFontRef(font.GetRef(), &key);
            char name[256] = {};
            (void)gFontSuite->GetPostScriptFontName(key, name, sizeof name);
            perRun(name);
        }
    }
    (void)sMdMemorySuite->MdMemoryDisposeHandle(reinterpret_cast<void**>(matches));
}

size_t GetAllocationCount() { return sAllocations; }

}  // namespace bench_host
