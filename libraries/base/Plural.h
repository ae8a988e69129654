#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

// "1 text frame", "3 text frames": the plural is the noun with an "s".
std::string Count(size_t number, std::string_view noun);

// The same for a plural of another form: "1 stretch of text", "2 stretches of text".
std::string Count(size_t number, std::string_view singular, std::string_view plural);

}  // namespace base
