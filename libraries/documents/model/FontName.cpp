#include "documents/model/FontName.h"

#include <algorithm>

namespace documents {

bool IsFontName(std::string_view name)
{
    return !name.empty() && name.size() <= kMostFontNameBytes;
}

std::string_view CutFontName(std::string_view name)
{
    return name.substr(0, kMostFontNameBytes + 1);
}

std::string StripSubsetPrefix(std::string_view name)
{
    constexpr size_t kLetters = 6;
    const bool isSubset = name.size() > kLetters + 1 && name[kLetters] == '+' &&
                          std::all_of(name.begin(), name.begin() + kLetters,
                                      [](char c) { return c >= 'A' && c <= 'Z'; });
    return std::string(CutFontName(isSubset ? name.substr(kLetters + 1) : name));
}

}  // namespace documents
