#include "Suites.h"

namespace wrong {

namespace {

const char kText[] = "text";

// Frees a block whatever happens.
struct Block {
    void* memory = nullptr;
    unsigned long count = 0;  // as in ai::AutoBuffer

    ~Block()
    {
        if (memory == nullptr) return;
        GiveBack([this] {
            const Suite<SPBlocksSuite> blocks("SP Blocks Suite", 2);
            return blocks->FreeBlock(memory);
        });
    }
};

}  // namespace

AIErr DestroyString(void** word)
{
    const Suite<AIUnicodeStringSuite> strings("AI Unicode String Suite", 1008);
    return strings->Destroy(reinterpret_cast<ai::UnicodeString*>(word));
}

AIErr DisposePath(void** word)
{
    const Suite<AIFilePathSuite> paths("AI File Path Suite", 1006);
    return paths->DisposeFilePath(reinterpret_cast<ai::FilePath*>(word));
}

std::string ReadString(const ai::UnicodeString& string)
{
    using Buffer = ai::AutoBuffer<char, unsigned long, ai::SPAlloc>;
    const Suite<AIUnicodeStringSuite> strings("AI Unicode String Suite", 1008);
    // The buffer's own functions need suites that this plug-in has no place for.
    struct {
        unsigned long count;
        void* memory;
    } fields = {0, nullptr};
    static_assert(sizeof fields == sizeof(Buffer));
    unsigned long count = 0;
    const AIErr status = strings->GetAs(string, kAIPlatformCharacterEncoding,
                                        reinterpret_cast<Buffer&>(fields), &count);
    Block block;
    block.memory = fields.memory;
    Expect("GetAs", status);
    return block.memory == nullptr ? "" : std::string(static_cast<char*>(block.memory), count);
}

std::string ReadPath(void* path)
{
    if (path == nullptr) return {};
    const Suite<AIFilePathSuite> paths("AI File Path Suite", 1006);
    Word text(DestroyString);
    Expect("GetFullPath", paths->GetFullPath(*reinterpret_cast<ai::FilePath*>(&path), false,
                                             text.As<ai::UnicodeString>()));
    return ReadString(text.As<ai::UnicodeString>());
}

void UseBlock()
{
    const Suite<SPBlocksSuite> blocks("SP Blocks Suite", 2);
    Block block;
    Expect("AllocateBlock", blocks->AllocateBlock(sizeof kText, kText, &block.memory));
}

void UseString()
{
    const Suite<AIUnicodeStringSuite> strings("AI Unicode String Suite", 1008);
    Word string(DestroyString);
    Expect("Initialize", strings->Initialize(&string.As<ai::UnicodeString>(), kText,
                                             sizeof kText - 1, kAIPlatformCharacterEncoding));
}

}  // namespace wrong
