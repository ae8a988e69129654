#include "GFileLogAppender.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

GFileLogAppender::GFileLogAppender(const std::string& path)
    : mFile(open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644))
{
}

GFileLogAppender::~GFileLogAppender()
{
    // Errors of earlier writes can't be repaired here.
    if (mFile >= 0) (void)close(mFile);
}

bool GFileLogAppender::IsOpen() const { return mFile >= 0; }

void GFileLogAppender::Append(std::string line)
{
    if (mFile < 0) return;
    size_t written = 0;
    while (written < line.size()) {
        const ssize_t count = write(mFile, line.data() + written, line.size() - written);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return;
        written += static_cast<size_t>(count);
    }
}
