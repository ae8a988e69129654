#include "docfonts/html/StateWords.h"

namespace docfonts {

const StateWords& GetWords(FontState state)
{
    static constexpr StateWords kWords[] = {{"installed", "yes", "good"},
                                            {"in the library", "library", "fair"},
                                            {"only as another style", "near", "poor"},
                                            {"missing", "no", "bad"}};
    return kWords[static_cast<size_t>(state)];
}

const StateWords& GetWords(PlacedState state)
{
    static constexpr StateWords kWords[] = {
        {"found", "yes", "good"}, {"moved", "near", "poor"}, {"missing", "no", "bad"}};
    return kWords[static_cast<size_t>(state)];
}

const StateWords& GetWords(DocumentState state)
{
    static constexpr StateWords kWords[] = {
        {"complete", "yes", "good"}, {"incomplete", "no", "bad"}, {"not read", "alert", "unread"}};
    return kWords[static_cast<size_t>(state)];
}

void AppendBadge(const StateWords& words, std::string& html, const std::string& word)
{
    html += std::string("<span class=\"badge ") + words.style +
            "\"><svg aria-hidden=\"true\"><use href=\"#" + words.icon + "\"/></svg>" +
            (word.empty() ? words.word : word) + "</span>";
}

}  // namespace docfonts
