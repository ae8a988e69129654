#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "batch/FileWalk.h"

namespace batch {

struct ReadingLimits {
    size_t jobs = 0;      // files read at a time; 0: as many as there are cores, but at most 8
    double seconds = 30;  // for one file
};

// The answer for one file.
struct FileAnswer {
    std::string path;
    std::string error;  // one line without the path; empty if `text` is valid
    std::string text;   // the result of the reader
};

// Reads one file, in a worker process. Throws std::bad_alloc if the file needs more memory than
// the process has.
//
// helperBytes   the memory for a program that it starts
using FileReader = std::function<std::string(const std::string& path, size_t helperBytes)>;

// Calls `read` for the files of `walk`, several at a time, in worker processes, so that a file that
// crashes or hangs the reader fails alone. All processes together use at most 1 GiB; a file that
// needs more memory than one of several workers has is read again alone.
//
// The memory needed doesn't depend on the number of files: no file is begun that is too far behind
// the first one that is not answered. On a terminal, a line on standard error shows the progress.
//
// done     called in this process for each file, in the order of `walk`
// isEnded  polled; true ends the work
// Returns false if the work was ended. Throws std::runtime_error if no process can be started.
bool ReadInOrder(FileWalk& walk, const ReadingLimits& limits, const FileReader& read,
                 const std::function<void(FileAnswer answer)>& done,
                 const std::function<bool()>& isEnded);

// The error of a file that needs more memory than there is.
constexpr char kNoMemoryError[] = "too large: not enough memory";

}  // namespace batch
