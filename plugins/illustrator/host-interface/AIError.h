#pragma once

#include <exception>

#include "HostTypes.h"

namespace ai {

// A host error met by one of the ai wrappers. The code is never 0.
class Error : public std::exception {
public:
    explicit Error(AIErr code) : mCode(code) {}
    ~Error() override;
    const char* what() const noexcept override;  // "AI Exception"

    operator AIErr() const { return mCode; }

private:
    AIErr mCode;
};

// Throws ai::Error for any code but 0.
void check_ai_error(int code);

// A suite that the host refused can't be called: throws ai::Error with kHostBadParameter for null.
template <class Suite>
Suite* check_suite(Suite* suite)
{
    if (suite == nullptr) throw Error(kHostBadParameter);
    return suite;
}

}  // namespace ai

// Throws ai::Error for any code but 0.
void check_result(int code);
