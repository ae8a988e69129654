#include "ThreadLocals.h"

#include <pthread.h>

#include <cstdlib>
#include <cstring>

#include "LoadError.h"

namespace {

struct Descriptor {
    void* (*getAddress)(Descriptor*);
    uint64_t key;
    uint64_t offset;
};

pthread_key_t sKey;
const uint8_t* sTemplate;
size_t sTemplateSize;

}  // namespace

// Called by TlvGetAddress.
extern "C" __attribute__((visibility("hidden"))) void* MachOFindThreadLocal(
    const Descriptor* wanted)
{
    auto* block = static_cast<uint8_t*>(pthread_getspecific(sKey));
    if (block == nullptr) {
        block = static_cast<uint8_t*>(std::malloc(sTemplateSize));
        if (block == nullptr || pthread_setspecific(sKey, block) != 0) std::abort();
        std::memcpy(block, sTemplate, sTemplateSize);
    }
    return block + wanted->offset;
}

// The caller expects that all registers but rax and rdi are unchanged.
extern "C" __attribute__((visibility("hidden"))) void* MachOTlvGetAddress(Descriptor*);
__asm__(R"(
    .text
    .hidden MachOTlvGetAddress
    .globl MachOTlvGetAddress
    .type MachOTlvGetAddress, @function
MachOTlvGetAddress:
    pushq %rbp
    movq %rsp, %rbp
    pushq %rcx
    pushq %rdx
    pushq %rsi
    pushq %r8
    pushq %r9
    pushq %r10
    pushq %r11
    subq $528, %rsp
    andq $-16, %rsp
    fxsave64 (%rsp)
    call MachOFindThreadLocal
    fxrstor64 (%rsp)
    leaq -56(%rbp), %rsp
    popq %r11
    popq %r10
    popq %r9
    popq %r8
    popq %rsi
    popq %rdx
    popq %rcx
    popq %rbp
    ret
    .size MachOTlvGetAddress, .-MachOTlvGetAddress
)");

namespace macho {

void SetUpThreadLocals(const Image& image, const Memory& memory)
{
    uint64_t start = 0;
    uint64_t end = 0;
    for (const Section& section : image.sections) {
        if (section.type == kThreadLocalInitFunctionPointers) {
            throw LoadError(image.path + ": section " + section.name + " is unknown");
        }
        if (section.type != kThreadLocalRegular && section.type != kThreadLocalZeroFill) continue;
        if (end == 0) start = section.address;
        end = section.address + section.size;
    }
    if (end == 0) return;
    if (pthread_key_create(&sKey, std::free) != 0) {
        throw LoadError(image.path + ": no key for the thread-local variables");
    }
    sTemplate = memory.At(start);
    sTemplateSize = end - start;
    for (const Section& section : image.sections) {
        if (section.type != kThreadLocalVariables) continue;
        auto* const descriptors = reinterpret_cast<Descriptor*>(memory.At(section.address));
        for (size_t index = 0; index < section.size / sizeof(Descriptor); ++index) {
            descriptors[index].getAddress = MachOTlvGetAddress;
        }
    }
}

}  // namespace macho
