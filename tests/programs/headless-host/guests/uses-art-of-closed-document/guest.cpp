#include "../GuestSupport.h"

namespace {

AIArtHandle sKept = nullptr;

void OnOpened(_t_AIDocument*)
{
    if (sKept == nullptr) {
        sKept = guest::GetFirstFrame();
        return;
    }
    guest::Held<AITextFrameSuite> frames("AI Text Frame Suite", 1004);
    ATE::_TextFrame* frame = nullptr;
    (void)frames->GetATETextFrame(sKept, &frame);
}

}  // namespace

GUEST_MAIN(char* caller, char* selector, void* message)
{
    return guest::Serve(caller, selector, message, OnOpened, nullptr);
}
