#include "Console.h"

#include <cstdio>

#include "Log.h"
#include "Report.h"

namespace headless {

void Tell(const std::string& text)
{
    const std::string line = MakePrintable(text);
    // Standard error is the last resort: a failure to write there can be told nobody.
    (void)std::fprintf(stderr, "headless-host: %s\n", line.c_str());
    LogProblem(line);
}

bool Print(const std::string& text)
{
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (isWritten && std::fflush(stdout) == 0) return true;
    Tell("standard output can't be written");
    return false;
}

}  // namespace headless
