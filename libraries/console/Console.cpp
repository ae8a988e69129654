#include "console/Console.h"

#include <algorithm>
#include <cstdio>

#include "console/Log.h"

namespace console {

namespace {

const char* sProgramName = "";

}  // namespace

void SetProgramName(const char* name) { sProgramName = name; }
const char* GetProgramName() { return sProgramName; }

std::string MakePrintable(const std::string& text)
{
    std::string result = text;
    std::replace_if(
        result.begin(), result.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
    return result;
}

void Tell(const std::string& text)
{
    const std::string line = MakePrintable(text);
    // Standard error is the last resort: a failure to write there can be told nobody.
    (void)std::fprintf(stderr, "%s: %s\n", sProgramName, line.c_str());
    LogProblem(line);
}

bool Print(const std::string& text)
{
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (isWritten && std::fflush(stdout) == 0) return true;
    Tell("standard output can't be written");
    return false;
}

}  // namespace console
