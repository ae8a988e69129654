#include "../GuestSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    guest::Held<AITextFrameSuite> frames("AI Text Frame Suite", 1004);
    int something = 0;
    ATE::_TextRange* range = nullptr;
    (void)frames->GetATETextRange(reinterpret_cast<AIArtHandle>(&something), &range);
}

}  // namespace

GUEST_MAIN(char* caller, char* selector, void* message)
{
    return guest::Serve(caller, selector, message, OnOpened, nullptr);
}
