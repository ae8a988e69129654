#include "AIError.h"

namespace ai {

Error::~Error() = default;

const char* Error::what() const noexcept { return "AI Exception"; }

void check_ai_error(int code)
{
    if (code != kHostSuccess) throw Error(code);
}

}  // namespace ai

void check_result(int code) { ai::check_ai_error(code); }
