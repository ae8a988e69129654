#include "EpsSample.h"

#include <stdexcept>
#include <string_view>

namespace {

// Removes the first line that begins with `start`, with its end.
void RemoveLine(std::string& eps, std::string_view start)
{
    const size_t position = eps.find(start);
    if (position == std::string::npos) return;
    eps.erase(position, eps.find('\n', position) + 1 - position);
}

void InsertBefore(std::string& eps, const std::string& line, const std::string& text)
{
    const size_t position = eps.find(line);
    if (position == std::string::npos) throw std::runtime_error("no " + line + " in the EPS");
    eps.insert(position, text);
}

}  // namespace

std::string FinishEps(const std::string& eps, const EpsFacts& facts)
{
    std::string result = eps;
    RemoveLine(result, "%%Creator");
    RemoveLine(result, "%%CreationDate");
    std::string header = "%%Creator: Headless Host\n%%DocumentFonts:";
    const char* separator = " ";
    for (const std::string& font : facts.fonts) {
        header += separator + font + "\n";
        separator = "%%+ ";
    }
    separator = "%%DocumentFiles:";
    std::string body;
    for (const std::string& file : facts.placedFiles) {
        header += separator + file + "\n";
        separator = "%%+";
        body += "%%IncludeFile:" + file + "\n";
    }
    InsertBefore(result, "%%EndComments", header);
    InsertBefore(result, "%%Trailer", body);
    return result;
}
