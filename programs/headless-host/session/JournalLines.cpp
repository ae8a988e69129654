#include "session/JournalLines.h"

#include <algorithm>

#include "base/JsonText.h"

namespace headless {

namespace {

using nlohmann::json;

// The text as JSON, without the quotation marks.
std::string Escape(const std::string& text)
{
    const std::string quoted = base::PrintJson(json(text));
    return quoted.substr(1, quoted.size() - 2);
}

}  // namespace

void JournalLines::Add(const std::string& operation, const json& arguments, const json& result)
{
    ++mCounts[operation];
    if (IsComplete()) {
        (void)mLines.emplace(operation, base::PrintJson(arguments) + " " + base::PrintJson(result));
    }
}

size_t JournalLines::Count(const std::string& operation) const
{
    const auto found = mCounts.find(operation);
    return found == mCounts.end() ? 0 : found->second;
}

bool JournalLines::Has(const std::string& operation, const std::string& text) const
{
    const std::string escaped = Escape(text);
    return std::any_of(mLines.begin(), mLines.end(), [&](const auto& line) {
        return line.first.find(operation) != std::string::npos &&
               (line.second.find(text) != std::string::npos ||
                line.second.find(escaped) != std::string::npos);
    });
}

}  // namespace headless
