#include <cstring>

#include "suites/SuiteCall.h"
#include "suites/SuiteTable.h"
#include "suites/SuiteTables.h"

// The suites for blocks, memory handles and strings.
namespace headless {

namespace {

const SuiteRow& kBlocksSuite = *FindSuiteRow("SP Blocks Suite");
const SuiteRow& kMdMemorySuite = *FindSuiteRow("AI MdMemory Suite");
const SuiteRow& kUnicodeStringSuite = *FindSuiteRow("AI Unicode String Suite");

AIErr AllocateBlock(size_t size, const char* debugName, void** block)
{
    return Answer(kBlocksSuite, "AllocateBlock", [&](SuiteCall& call) {
        call.Arg("size", size);
        call.Arg("debugName", debugName == nullptr ? "(null)" : debugName);
        if (!call.Require(block, "block")) return kHostBadParameter;
        *block = call.host.handles.IssueBlock(HandleType::kBlock, size);
        call.OutHandle("block", *block);
        return kHostSuccess;
    });
}

AIErr FreeBlock(void* block)
{
    return Answer(kBlocksSuite, "FreeBlock", [&](SuiteCall& call) {
        call.Handle("block", block);
        return call.host.handles.Release(block, HandleType::kBlock, call.operation)
                   ? kHostSuccess
                   : kHostBadParameter;
    });
}

AIErr MdMemoryDisposeHandle(void** handle)
{
    return Answer(kMdMemorySuite, "MdMemoryDisposeHandle", [&](SuiteCall& call) {
        call.Handle("handle", handle);
        return call.host.handles.Release(handle, HandleType::kMemoryHandle, call.operation)
                   ? kHostSuccess
                   : kHostBadParameter;
    });
}

// Both supported encodings are UTF-8 on this platform, so strings are stored without conversion.
bool IsEncoding(SuiteCall& call, AICharacterEncoding encoding)
{
    call.Arg("encoding", static_cast<int>(encoding));
    if (encoding == kAIPlatformCharacterEncoding || encoding == kAIUTF8CharacterEncoding) {
        return true;
    }
    (void)call.Refuse(kBadArgument, "the host has no encoding " + std::to_string(encoding));
    return false;
}

AIErr Initialize(ai::UnicodeString* string, const char* text, size_t byteLength,
                 AICharacterEncoding encoding)
{
    return Answer(kUnicodeStringSuite, "Initialize", [&](SuiteCall& call) {
        if (!call.Require(string, "string") || !IsEncoding(call, encoding)) {
            return kHostBadParameter;
        }
        if (byteLength > 0 && !call.Require(text, "text")) return kHostBadParameter;
        std::string bytes = byteLength == 0 ? std::string() : std::string(text, byteLength);
        call.Arg("text", bytes);
        // Uninitialized memory is allowed here, so a previous handle is not released.
        SetHandle(*string, call.host.handles.Issue(
                               std::make_shared<StringObject>(StringObject{std::move(bytes)})));
        call.OutHandle("string", GetHandle(*string));
        return kHostSuccess;
    });
}

AIErr Destroy(ai::UnicodeString* string)
{
    return Answer(kUnicodeStringSuite, "Destroy", [&](SuiteCall& call) {
        if (!call.Require(string, "string")) return kHostBadParameter;
        call.Handle("string", GetHandle(*string));
        if (!call.host.handles.Release(GetHandle(*string), HandleType::kString, call.operation)) {
            return kHostBadParameter;
        }
        SetHandle(*string, nullptr);
        return kHostSuccess;
    });
}

// The fields of ai::AutoBuffer, which owns a block of the blocks suite.
struct BufferFields {
    unsigned long count;
    char* buffer;
};
static_assert(sizeof(BufferFields) == sizeof(ai::UnicodeString::Buffer));

AIErr GetAs(const ai::UnicodeString& string, AICharacterEncoding encoding,
            ai::UnicodeString::Buffer& buffer, unsigned long* count)
{
    return Answer(kUnicodeStringSuite, "GetAs", [&](SuiteCall& call) {
        call.Handle("string", GetHandle(string));
        if (!IsEncoding(call, encoding) || !call.Require(count, "count")) return kHostBadParameter;
        std::string text;
        if (GetHandle(string) != nullptr) {
            const auto* const found = call.Find<StringObject>(GetHandle(string));
            if (found == nullptr) return kHostBadParameter;
            text = found->text;
        }
        auto& fields = reinterpret_cast<BufferFields&>(buffer);
        if (fields.buffer != nullptr &&
            !call.host.handles.Release(fields.buffer, HandleType::kBlock, call.operation)) {
            return kHostBadParameter;
        }
        fields = {0, nullptr};
        if (!text.empty()) {
            void* const block = call.host.handles.IssueBlock(HandleType::kBlock, text.size());
            std::memcpy(block, text.data(), text.size());
            fields = {text.size(), static_cast<char*>(block)};
        }
        *count = text.size();
        call.Out("text", text);
        call.OutHandle("block", fields.buffer);
        return kHostSuccess;
    });
}

}  // namespace

const SPBlocksSuite kBlocksTable = {AllocateBlock, FreeBlock};
const AIMdMemorySuite kMdMemoryTable = {MdMemoryDisposeHandle};
const AIUnicodeStringSuite kUnicodeStringTable = {Initialize, Destroy, GetAs};

}  // namespace headless
