#include "../GuestSupport.h"

GUEST_MAIN(char* caller, char* selector, void* message)
{
    if (std::string(selector) == "Unload") return 1;
    return guest::Serve(caller, selector, message, nullptr, nullptr);
}
