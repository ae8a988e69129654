#pragma once

#include <string>
#include <vector>

// A line of the shared logger, parsed.
struct LoggedReport {
    std::string time;
    std::string category;
    std::string level;  // "Error", "Debug", ...
    std::string message;

    // The five fields of a failure report; empty or 0 for any other line.
    std::string name;
    std::string file;
    int line = 0;
    std::string expression;
    unsigned int code = 0;
};

// Records every line of the shared logger, at all levels, while the object exists. Only one can
// exist at a time. Its destructor removes all appenders and resets all levels.
class RecordingLog {
public:
    RecordingLog();
    ~RecordingLog();
    RecordingLog(const RecordingLog&) = delete;
    RecordingLog& operator=(const RecordingLog&) = delete;

    std::vector<LoggedReport>& Reports();
};
