#include <ostream>
#include <sstream>
#include <vector>

#include "GBlockingLockStrategy.h"
#include "GDateTime.h"
#include "GLogger.h"
#include "GScopedLock.h"
#include "GStringUtils.h"
#include "GThread.h"

namespace {

constexpr int kBufferStep = 256;

// Formats into the buffer, which grows in steps and never shrinks. If the format fails, the buffer
// holds the empty text.
void FormatInto(std::vector<char>& buffer, const char* format, va_list args)
{
    va_list again;
    va_copy(again, args);
    const int needed = GStringUtils::OSvsnprintf(buffer.data(), buffer.size(), format, args);
    if (needed < 0) {
        buffer[0] = 0;
    } else if (needed >= static_cast<int>(buffer.size())) {
        const size_t size = ((static_cast<size_t>(needed) + 1) & ~size_t(0xFF)) + kBufferStep;
        buffer.resize(size, 0);
        buffer[0] = 0;
        if (GStringUtils::OSvsnprintf(buffer.data(), buffer.size(), format, again) < 0) {
            buffer[0] = 0;
        }
    }
    va_end(again);
}

}  // namespace

void GLogger::LogvString(const std::string& format, va_list args)
{
    static GMutex sCurrentLogThreadMutex;
    // The lock and date classes used below may log failures themselves. Such a call, on the same
    // thread, must return here, because it would wait for itself. Calls of other threads pass and
    // wait for appenderLock.
    static void* sCurrentLogThread = nullptr;
    {
        const GScopedLock lock(sCurrentLogThreadMutex, true, new GBlockingLockStrategy);
        if (!lock.IsLocked()) return;
        if (GThread::AreThreadsEqual(sCurrentLogThread, GThread::GetCurrentThread())) return;
    }

    const GScopedLock appenderLock(mAppenderMutex, true, new GBlockingLockStrategy);
    if (!appenderLock.IsLocked()) return;
    GScopedLock threadLock(sCurrentLogThreadMutex, true, new GBlockingLockStrategy);
    if (threadLock.IsLocked()) {
        sCurrentLogThread = GThread::GetCurrentThread();
        threadLock.Unlock();
    }

    if (!mAppenders.empty()) {
        try {
            static std::vector<char> sStringBuffer(kBufferStep);
            FormatInto(sStringBuffer, format.c_str(), args);
            std::ostringstream line;
            line << "[" << GDateTime().GetAsISO8601String(true) << "]\t" << sStringBuffer.data()
                 << std::endl;
            for (const auto& entry : mAppenders) {
                if (entry.second) entry.second->Append(line.str());
            }
        } catch (...) {
            // The line is lost, but sCurrentLogThread must still be reset.
        }
    }

    if (threadLock.Lock()) sCurrentLogThread = nullptr;
}
