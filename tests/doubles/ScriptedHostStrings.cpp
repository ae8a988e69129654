// The scripted host's strings, paths, blocks and the document suite.

#include "ScriptedHostSuites.h"

namespace {

using Buffer = ai::AutoBuffer<char, unsigned long, ai::SPAlloc>;

struct BufferFields {
    unsigned long count;
    void* block;
};
static_assert(sizeof(Buffer) == sizeof(BufferFields));

std::string LastComponent(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string PathText(const ai::FilePath& path)
{
    const auto found = Host().paths.find(PathSlot(path));
    if (found != Host().paths.end()) return found->second;
    if (PathSlot(path) != nullptr) (void)Host().Fault("unknown path");
    return "";
}

void* NewBlock(size_t size, const char* name)
{
    ScriptedBlock block{std::vector<unsigned char>(size + 1, 0xA5), name};
    void* const address = block.bytes.data();
    Host().blocks.emplace(address, std::move(block));
    return address;
}

AIErr GetDocumentFileSpecification(ai::FilePath& file)
{
    if (const AIErr code = Host().Record("AIDocumentSuite.GetDocumentFileSpecification", "")) {
        return code;
    }
    const ScriptedDocument* const document = Host().Document();
    if (document == nullptr) return kScriptedNoDocument;
    if (document->path.empty()) return kHostSuccess;
    PathSlot(file) = Host().NewHandle();
    Host().paths[PathSlot(file)] = document->path;
    return kHostSuccess;
}

AIErr GetDocumentModified(bool* modified)
{
    if (const AIErr code = Host().Record("AIDocumentSuite.GetDocumentModified", "")) return code;
    if (Host().Document() == nullptr) return kScriptedNoDocument;
    *modified = Host().Document()->modified;
    return kHostSuccess;
}

AIErr GetDocument(_t_AIDocument** document)
{
    if (const AIErr code = Host().Record("AIDocumentSuite.GetDocument", "")) return code;
    if (Host().Document() == nullptr) return kScriptedNoDocument;
    *document = Host().DocumentHandle(Host().currentDocument);
    return kHostSuccess;
}

AIErr DisposeFilePath(ai::FilePath* path)
{
    if (const AIErr code = Host().Record("AIFilePathSuite.DisposeFilePath", "")) return code;
    if (Host().paths.erase(PathSlot(*path)) == 0) return Host().Fault("path freed twice");
    PathSlot(*path) = nullptr;
    return kHostSuccess;
}

AIErr GetFileName(const ai::FilePath& path, bool displayForm, ai::UnicodeString& name)
{
    const std::string arguments =
        Quoted(PathText(path).c_str()) + (displayForm ? ", true" : ", false");
    if (const AIErr code = Host().Record("AIFilePathSuite.GetFileName", arguments)) return code;
    SetHostString(name, LastComponent(PathText(path)));
    return kHostSuccess;
}

AIErr GetFullPath(const ai::FilePath& path, bool displayForm, ai::UnicodeString& fullPath)
{
    const std::string arguments =
        Quoted(PathText(path).c_str()) + (displayForm ? ", true" : ", false");
    if (const AIErr code = Host().Record("AIFilePathSuite.GetFullPath", arguments)) return code;
    SetHostString(fullPath, PathText(path));
    return kHostSuccess;
}

AIErr Initialize(ai::UnicodeString* string, const char* text, size_t length,
                 AICharacterEncoding encoding)
{
    const std::string bytes(text, length);
    if (const AIErr code = Host().Record("AIUnicodeStringSuite.Initialize",
                                         Quoted(bytes.c_str()) + ", " + std::to_string(length) +
                                             ", " + std::to_string(encoding))) {
        return code;
    }
    SetHostString(*string, bytes);
    return kHostSuccess;
}

AIErr Destroy(ai::UnicodeString* string)
{
    if (const AIErr code = Host().Record("AIUnicodeStringSuite.Destroy", "")) return code;
    if (Host().strings.erase(StringSlot(*string)) == 0) return Host().Fault("string freed twice");
    StringSlot(*string) = nullptr;
    return kHostSuccess;
}

AIErr GetAs(const ai::UnicodeString& string, AICharacterEncoding encoding, Buffer& buffer,
            unsigned long* count)
{
    const std::string text = HostStringText(string);
    if (const AIErr code =
            Host().Record("AIUnicodeStringSuite.GetAs",
                          (StringSlot(string) == nullptr ? "null" : Quoted(text.c_str())) + ", " +
                              std::to_string(encoding))) {
        return code;
    }
    BufferFields& fields = *reinterpret_cast<BufferFields*>(&buffer);
    if (fields.block != nullptr) (void)Host().blocks.erase(fields.block);
    fields = {text.size(), nullptr};
    if (!text.empty()) {
        fields.block = NewBlock(text.size(), "GetAs");
        std::memcpy(fields.block, text.data(), text.size());
    }
    *count = text.size();
    return kHostSuccess;
}

AIErr AllocateBlock(size_t size, const char* debugName, void** block)
{
    if (const AIErr code = Host().Record("SPBlocksSuite.AllocateBlock",
                                         std::to_string(size) + ", " + Quoted(debugName))) {
        return code;
    }
    *block = NewBlock(size, debugName);
    return kHostSuccess;
}

AIErr FreeBlock(void* block)
{
    const auto found = Host().blocks.find(block);
    const std::string name = found == Host().blocks.end() ? "unknown" : found->second.name;
    if (const AIErr code = Host().Record("SPBlocksSuite.FreeBlock", name)) return code;
    if (found == Host().blocks.end()) return Host().Fault("unknown block freed");
    Host().blocks.erase(found);
    return kHostSuccess;
}

}  // namespace

void SetHostString(ai::UnicodeString& string, const std::string& bytes)
{
    (void)Host().strings.erase(StringSlot(string));
    StringSlot(string) = Host().NewHandle();
    Host().strings[StringSlot(string)] = bytes;
}

std::string HostStringText(const ai::UnicodeString& string)
{
    const auto found = Host().strings.find(StringSlot(string));
    if (found != Host().strings.end()) return found->second;
    if (StringSlot(string) != nullptr) (void)Host().Fault("unknown string");
    return "";
}

AIDocumentSuite* DocumentSuite()
{
    static AIDocumentSuite suite = {GetDocumentFileSpecification, GetDocumentModified, GetDocument};
    return &suite;
}

AIFilePathSuite* FilePathSuite()
{
    static AIFilePathSuite suite = {DisposeFilePath, GetFileName, GetFullPath};
    return &suite;
}

AIUnicodeStringSuite* UnicodeStringSuite()
{
    static AIUnicodeStringSuite suite = {Initialize, Destroy, GetAs};
    return &suite;
}

SPBlocksSuite* BlocksSuite()
{
    static SPBlocksSuite suite = {AllocateBlock, FreeBlock};
    return &suite;
}
