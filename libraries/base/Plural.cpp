#include "base/Plural.h"

namespace base {

std::string Count(size_t number, std::string_view noun)
{
    return Count(number, noun, std::string(noun) + "s");
}

std::string Count(size_t number, std::string_view singular, std::string_view plural)
{
    return std::to_string(number).append(" ").append(number == 1 ? singular : plural);
}

}  // namespace base
