#include "../GuestSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    guest::Held<SPBlocksSuite> blocks("SP Blocks Suite", 2);
    void* block = nullptr;
    (void)blocks->AllocateBlock(100, "a block", &block);
    (void)blocks->FreeBlock(block);
    (void)blocks->FreeBlock(block);
}

}  // namespace

GUEST_MAIN(char* caller, char* selector, void* message)
{
    return guest::Serve(caller, selector, message, OnOpened, nullptr);
}
