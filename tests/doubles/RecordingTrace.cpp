#include "RecordingTrace.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

#include "DebugUtils.h"
#include "UnfailingAllocations.h"

namespace {

std::vector<TraceLine>& Lines()
{
    static std::vector<TraceLine> lines;
    return lines;
}

}  // namespace

void OutputIndentedAndFormattedString(int indentChange, const char* format, ...)
{
    const UnfailingAllocations unfailing;
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (length > 0) (void)std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    Lines().push_back({indentChange, text});
}

const std::vector<TraceLine>& Traces() { return Lines(); }

void ClearTraces() { Lines().clear(); }

bool HasTrace(const std::string& text) { return CountTraces(text) > 0; }

std::size_t CountTraces(const std::string& text)
{
    return static_cast<std::size_t>(
        std::count_if(Lines().begin(), Lines().end(),
                      [&text](const TraceLine& line) { return line.text == text; }));
}

bool HasTraceBeginningWith(const std::string& beginning)
{
    return std::any_of(Lines().begin(), Lines().end(), [&beginning](const TraceLine& line) {
        return line.text.compare(0, beginning.size(), beginning) == 0;
    });
}

std::vector<std::string> TraceTexts()
{
    std::vector<std::string> texts;
    for (const TraceLine& line : Lines()) texts.push_back(line.text);
    return texts;
}
