#include <objc/message.h>
#include <objc/objc-exception.h>
#include <objc/runtime.h>

#include "libraries/Symbols.h"

// macOS's entry points of the Objective-C runtime, over the runtime of gcc.
extern "C" {

int __gnu_objc_personality_v0(...);

// Jumps to the method of a message, with all arguments unchanged. A message to nil returns 0.
void MachOMessageSend();
__asm__(R"(
    .text
    .hidden MachOMessageSend
    .globl MachOMessageSend
    .type MachOMessageSend, @function
MachOMessageSend:
    .cfi_startproc
    pushq %rbp
    .cfi_def_cfa_offset 16
    .cfi_offset 6, -16
    movq %rsp, %rbp
    .cfi_def_cfa_register 6
    subq $192, %rsp
    movq %rdi, (%rsp)
    movq %rsi, 8(%rsp)
    movq %rdx, 16(%rsp)
    movq %rcx, 24(%rsp)
    movq %r8, 32(%rsp)
    movq %r9, 40(%rsp)
    movq %rax, 48(%rsp)
    movaps %xmm0, 64(%rsp)
    movaps %xmm1, 80(%rsp)
    movaps %xmm2, 96(%rsp)
    movaps %xmm3, 112(%rsp)
    movaps %xmm4, 128(%rsp)
    movaps %xmm5, 144(%rsp)
    movaps %xmm6, 160(%rsp)
    movaps %xmm7, 176(%rsp)
    call objc_msg_lookup@PLT
    movq %rax, %r11
    movq (%rsp), %rdi
    movq 8(%rsp), %rsi
    movq 16(%rsp), %rdx
    movq 24(%rsp), %rcx
    movq 32(%rsp), %r8
    movq 40(%rsp), %r9
    movq 48(%rsp), %rax
    movaps 64(%rsp), %xmm0
    movaps 80(%rsp), %xmm1
    movaps 96(%rsp), %xmm2
    movaps 112(%rsp), %xmm3
    movaps 128(%rsp), %xmm4
    movaps 144(%rsp), %xmm5
    movaps 160(%rsp), %xmm6
    movaps 176(%rsp), %xmm7
    leave
    .cfi_def_cfa 7, 8
    jmp *%r11
    .cfi_endproc
    .size MachOMessageSend, .-MachOMessageSend
)");

}  // extern "C"

namespace macho {

namespace {

id Send(id receiver, const char* selector)
{
    SEL const registered = sel_registerName(selector);
    return reinterpret_cast<id (*)(id, SEL)>(objc_msg_lookup(receiver, registered))(receiver,
                                                                                    registered);
}

id Alloc(Class type) { return Send(reinterpret_cast<id>(type), "alloc"); }
id AllocInit(Class type) { return Send(Alloc(type), "init"); }
id Retain(id object) { return Send(object, "retain"); }
id Autorelease(id object) { return Send(object, "autorelease"); }
void Release(id object) { (void)Send(object, "release"); }

// The runtime of gcc gives the object itself to a handler, and frees the rest before.
id BeginCatch(void* exception) { return static_cast<id>(exception); }
void EndCatch() {}

struct Row {
    const char* name;
    void* address;
};

template <class Function>
void* AddressOf(Function* function)
{
    return reinterpret_cast<void*>(function);
}

const Row kObjCFunctions[] = {
    {"__objc_personality_v0", AddressOf(&__gnu_objc_personality_v0)},
    {"class_getInstanceMethod", AddressOf(&class_getInstanceMethod)},
    {"method_exchangeImplementations", AddressOf(&method_exchangeImplementations)},
    {"objc_alloc", AddressOf(&Alloc)},
    {"objc_alloc_init", AddressOf(&AllocInit)},
    {"objc_autorelease", AddressOf(&Autorelease)},
    {"objc_begin_catch", AddressOf(&BeginCatch)},
    {"objc_end_catch", AddressOf(&EndCatch)},
    {"objc_msgSend", AddressOf(&MachOMessageSend)},
    {"objc_release", AddressOf(&Release)},
    {"objc_retain", AddressOf(&Retain)},
};

}  // namespace

void* FindInLibObjC(const std::string& symbol)
{
    for (const Row& row : kObjCFunctions) {
        if (symbol == row.name) return row.address;
    }
    return nullptr;
}

}  // namespace macho
