#pragma once

#include <string>

// Receives the finished lines of a logger, for example to write them to a file.
//
// GLogger::AddAppender takes ownership; the appender is deleted by the logger, on any thread.
class GLogAppender {
public:
    virtual ~GLogAppender();

    // Receives one line in UTF-8, with its newline. A logger never calls it from two threads at the
    // same time. Log calls that it makes are dropped. An exception loses the line for the appenders
    // that follow, and nothing else. [any thread]
    virtual void Append(std::string line) = 0;
};
