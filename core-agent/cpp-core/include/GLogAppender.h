#pragma once

#include <string>

// Where finished log lines go. The logger that it was added to owns it.
class GLogAppender {
public:
    virtual ~GLogAppender();

    // One whole line with its newline, never from two threads of one logger at once. Whatever it
    // logs itself is dropped.
    virtual void Append(std::string line) = 0;
};
