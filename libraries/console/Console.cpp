#include "console/Console.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "base/Strings.h"
#include "console/Log.h"

namespace console {

namespace {

const char* sProgramName = "";

}  // namespace

void SetProgramName(const char* name)
{
    sProgramName = name;
    SetLogName(name);
}

std::string MakePrintable(const std::string& text) { return base::MakePrintable(text); }

void PrintError(const std::string& text)
{
    const std::string line = MakePrintable(text);
    // An error of standard error itself can't be reported anywhere.
    (void)std::fprintf(stderr, "%s: %s\n", sProgramName, line.c_str());
    LogError(line);
}

bool Print(const std::string& text)
{
    errno = 0;
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (isWritten && std::fflush(stdout) == 0) return true;
    const int reason = errno;
    // A reader that ends early, such as head(1), has what it wants.
    if (reason != EPIPE) {
        PrintError(std::string("standard output: cannot be written: ") + std::strerror(reason));
    }
    return false;
}

}  // namespace console
