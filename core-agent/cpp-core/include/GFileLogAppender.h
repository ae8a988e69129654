#pragma once

#include <string>

#include "GLogAppender.h"
#include "GNoncopyable.h"

// Lines at the end of a file, which is made when it isn't there. Each line is written whole, so
// that several processes may share the file. Errors cost the line and nothing else.
class GFileLogAppender : public GLogAppender, private GNoncopyable {
public:
    explicit GFileLogAppender(const std::string& path);
    ~GFileLogAppender() override;

    // False when the file couldn't be opened; lines are then dropped.
    bool IsOpen() const;

    void Append(std::string line) override;

private:
    int mFile;  // -1 when not open
};
