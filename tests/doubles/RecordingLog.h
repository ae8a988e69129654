#pragma once

#include <string>
#include <vector>

// A line of the shared logger, taken apart.
struct LoggedReport {
    std::string time;
    std::string category;
    std::string level;  // "Error", "Debug", ...
    std::string message;

    // The five fields of a failure report; empty and 0 in any other line.
    std::string name;
    std::string file;
    int line = 0;
    std::string expression;
    unsigned int code = 0;
};

// Records what the shared logger hands out while it lives, at all levels. One at a time.
class RecordingLog {
public:
    RecordingLog();
    ~RecordingLog();
    RecordingLog(const RecordingLog&) = delete;
    RecordingLog& operator=(const RecordingLog&) = delete;

    std::vector<LoggedReport>& Reports();
};
