#include "../GuestSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    guest::Held<AIArtSetSuite> sets("AI Art Set Suite", 1009);
    AIArtSet set = nullptr;
    (void)sets->NewArtSet(&set);
    (void)sets->NewArtSet(&set);
}

}  // namespace

GUEST_MAIN(char* caller, char* selector, void* message)
{
    return guest::Serve(caller, selector, message, OnOpened, nullptr);
}
