#include "../GuestSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    void* suite = nullptr;
    (void)guest::basic->AcquireSuite("ATE Spell Suite", 102, &suite);
}

}  // namespace

GUEST_MAIN(char* caller, char* selector, void* message)
{
    return guest::Serve(caller, selector, message, OnOpened, nullptr);
}
