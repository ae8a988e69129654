#include "documents/model/FontName.h"

#include <algorithm>

namespace documents {

std::string StripSubsetPrefix(const std::string& name)
{
    constexpr size_t kLetters = 6;
    const bool isSubset = name.size() > kLetters + 1 && name[kLetters] == '+' &&
                          std::all_of(name.begin(), name.begin() + kLetters,
                                      [](char c) { return c >= 'A' && c <= 'Z'; });
    return isSubset ? name.substr(kLetters + 1) : name;
}

}  // namespace documents
