#pragma once

#include <cstddef>
#include <string_view>

namespace base {

// The line "3 of 20  PATH" on standard error, which each call replaces. It exists on a terminal
// only. Anything else that prints must call ClearShown first. One thread.
class Progress {
public:
    // total   the number of things to do; 0 if it isn't known
    // least   for fewer things than that nothing is shown
    Progress(size_t total, size_t least);

    // Clears the line.
    ~Progress();

    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // number   how many things were begun or done
    // text     what is at work; control characters are printed as '?'
    void Show(size_t number, std::string_view text);

    // Removes the line if it is shown.
    void Clear();

    // The same for whichever object's line is shown. console::Print and console::PrintError call
    // it.
    static void ClearShown();

private:
    const size_t mTotal;
    const bool mIsWanted;
    bool mIsShown = false;
};

}  // namespace base
