#include "base/Progress.h"

#include <unistd.h>

#include <cstdio>
#include <string>

#include "base/Strings.h"

namespace base {

namespace {

constexpr char kClearLine[] = "\r\033[K";

Progress* sShown = nullptr;

}  // namespace

Progress::Progress(size_t total, size_t least)
    : mTotal(total), mIsWanted((total == 0 || total >= least) && isatty(STDERR_FILENO) == 1)
{
}

Progress::~Progress() { Clear(); }

void Progress::Show(size_t number, std::string_view text)
{
    if (!mIsWanted) return;
    // Nothing is lost if the line can't be printed.
    const std::string total = mTotal == 0 ? std::string() : " of " + std::to_string(mTotal);
    (void)std::fprintf(stderr, "%s%zu%s  %s", kClearLine, number, total.c_str(),
                       MakePrintable(text).c_str());
    mIsShown = true;
    sShown = this;
}

void Progress::Clear()
{
    if (mIsShown) (void)std::fputs(kClearLine, stderr);  // as above
    mIsShown = false;
    if (sShown == this) sShown = nullptr;
}

void Progress::ClearShown()
{
    if (sShown != nullptr) sShown->Clear();
}

}  // namespace base
