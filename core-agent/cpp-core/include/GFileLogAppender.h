#pragma once

#include <string>

#include "GLogAppender.h"
#include "GNoncopyable.h"

// Appends log lines to a file.
//
// Several processes may append to the same file: their lines don't mix. The file remains open for
// the appender's life. Errors lose the line and are not reported.
class GFileLogAppender : public GLogAppender, private GNoncopyable {
public:
    // Opens the file at `path` (UTF-8) and creates it, but not its folder, if it doesn't exist.
    explicit GFileLogAppender(const std::string& path);
    ~GFileLogAppender() override;

    // Returns false if the file couldn't be opened; Append then drops every line.
    bool IsOpen() const;

    // Writes the line as it is, before it returns.
    void Append(std::string line) override;

private:
    int mFile;  // -1 when not open
};
