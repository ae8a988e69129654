#include "../GuestSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    guest::Held<AITextFrameSuite> frames("AI Text Frame Suite", 1004);
    guest::Held<ATE::TextRangeSuite> ranges("ATE TextRange Suite", 1);
    ATE::_TextRange* range = nullptr;
    (void)frames->GetATETextRange(guest::GetFirstFrame(), &range);
    (void)ranges->Release(range);
    ATE::_CharFeatures* features = nullptr;
    (void)ranges->GetUniqueCharFeatures(range, &features);
}

}  // namespace

GUEST_MAIN(char* caller, char* selector, void* message)
{
    return guest::Serve(caller, selector, message, OnOpened, nullptr);
}
