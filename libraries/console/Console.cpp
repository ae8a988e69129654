#include "console/Console.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <sstream>

#include "base/Progress.h"
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
    base::Progress::ClearShown();
    const std::string line = MakePrintable(text);
    // An error of standard error itself can't be reported anywhere.
    (void)std::fprintf(stderr, "%s: %s\n", sProgramName, line.c_str());
    LogError(line);
}

void PrintException(const std::exception& exception)
{
    const bool isMemory = dynamic_cast<const std::bad_alloc*>(&exception) != nullptr;
    PrintError(isMemory ? "out of memory" : exception.what());
}

void PrintErrorLines(const std::string& title, const std::string& text)
{
    std::string block = MakePrintable(title);
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) block += "\n    " + MakePrintable(line);
    base::Progress::ClearShown();
    (void)std::fprintf(stderr, "%s: %s\n", sProgramName, block.c_str());  // as above
    LogError(MakePrintable(title + ": " + text));
}

bool Print(const std::string& text)
{
    base::Progress::ClearShown();
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
