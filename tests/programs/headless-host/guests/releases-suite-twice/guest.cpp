#include "../GuestSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    void* suite = nullptr;
    (void)guest::basic->AcquireSuite("AI Font Suite", 1006, &suite);
    (void)guest::basic->ReleaseSuite("AI Font Suite", 1006);
    (void)guest::basic->ReleaseSuite("AI Font Suite", 1006);
}

}  // namespace

GUEST_MAIN(char* caller, char* selector, void* message)
{
    return guest::Serve(caller, selector, message, OnOpened, nullptr);
}
