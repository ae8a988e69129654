#include "../GuestSupport.h"

namespace {

void OnOpened(_t_AIDocument*)
{
    const AIDocumentSuite* suite = nullptr;
    (void)guest::basic->AcquireSuite("AI Document Suite", 1017, &suite);
    (void)guest::basic->ReleaseSuite("AI Document Suite", 1017);
    _t_AIDocument* document = nullptr;
    (void)suite->GetDocument(&document);
}

}  // namespace

GUEST_MAIN(char* caller, char* selector, void* message)
{
    return guest::Serve(caller, selector, message, OnOpened, nullptr);
}
