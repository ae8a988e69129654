#include "documents/model/FontName.h"

#include <algorithm>

#include "base/Strings.h"

namespace documents {

namespace {

constexpr std::string_view kEncodingSuffixes[] = {"-Identity-H", "-Identity-V"};

// Returns the name without the suffix, or "" if it has none.
std::string_view RemoveEncodingSuffix(std::string_view name)
{
    for (const std::string_view suffix : kEncodingSuffixes) {
        if (base::EndsWith(name, suffix)) return name.substr(0, name.size() - suffix.size());
    }
    return {};
}

}  // namespace

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

bool HasEncodingSuffix(std::string_view name) { return !RemoveEncodingSuffix(name).empty(); }

std::string ChooseFontName(const std::string& name,
                           const std::function<bool(const std::string& name)>& exists)
{
    std::string font(RemoveEncodingSuffix(name));
    return !font.empty() && !exists(name) && exists(font) ? font : name;
}

}  // namespace documents
