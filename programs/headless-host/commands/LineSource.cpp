#include "commands/LineSource.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

#include "system/Interrupts.h"

namespace headless {

namespace {

class TextLines : public LineSource {
public:
    explicit TextLines(std::string text) : mText(std::move(text)) {}

    std::optional<std::string> Next() override
    {
        if (mAt >= mText.size() || IsInterrupted()) return std::nullopt;
        const size_t end = std::min(mText.find('\n', mAt), mText.size());
        std::string line = mText.substr(mAt, end - mAt);
        mAt = end + 1;
        return line;
    }

private:
    const std::string mText;
    size_t mAt = 0;
};

class InputLines : public LineSource {
public:
    explicit InputLines(IdleWork idle) : mIdle(std::move(idle)) {}

    std::optional<std::string> Next() override
    {
        for (;;) {
            const size_t end = mWaiting.find('\n');
            const bool isLast = mEnded && !mWaiting.empty();
            if (end != std::string::npos || isLast) {
                std::string line = mWaiting.substr(0, end);
                mWaiting.erase(0, end == std::string::npos ? end : end + 1);
                return line;
            }
            if (mEnded || IsInterrupted()) return std::nullopt;
            Fill();
        }
    }

private:
    void Fill()
    {
        constexpr int kMillisecondsPerSecond = 1000;
        struct pollfd input = {STDIN_FILENO, POLLIN, 0};
        const int ready = poll(&input, 1, kMillisecondsPerSecond / mIdle.ticksPerSecond);
        if (ready == 0) mIdle.tick();
        if (ready <= 0) return;  // EINTR: Next sees the interrupt
        char buffer[4096];
        const ssize_t count = read(STDIN_FILENO, buffer, sizeof buffer);
        if (count > 0) mWaiting.append(buffer, static_cast<size_t>(count));
        if (count == 0 || (count < 0 && errno != EINTR)) mEnded = true;
    }

    const IdleWork mIdle;
    std::string mWaiting;
    bool mEnded = false;
};

}  // namespace

std::unique_ptr<LineSource> ReadLinesOfText(std::string text)
{
    return std::make_unique<TextLines>(std::move(text));
}

std::unique_ptr<LineSource> ReadStandardInput(IdleWork idle)
{
    return std::make_unique<InputLines>(std::move(idle));
}

}  // namespace headless
