#pragma once

#include <exception>

#include "HostTypes.h"

namespace ai {

// Thrown by the wrappers in namespace ai when a host operation fails. Not related to
// ATE::Exception: a handler for one doesn't catch the other. The code is never 0.
class Error : public std::exception {
public:
    explicit Error(AIErr code) : mCode(code) {}
    ~Error() override;
    const char* what() const noexcept override;  // "AI Exception"

    // Returns the host's code.
    operator AIErr() const { return mCode; }

private:
    AIErr mCode;
};

// Throws ai::Error if `code` isn't 0.
void check_ai_error(int code);

// Returns `suite`. Throws ai::Error with kHostBadParameter if it is null, because the host has
// refused it or it has been released.
template <class Suite>
Suite* check_suite(Suite* suite)
{
    if (suite == nullptr) throw Error(kHostBadParameter);
    return suite;
}

}  // namespace ai

// The same as ai::check_ai_error.
void check_result(int code);
