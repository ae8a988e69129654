#include "GThread.h"

void* GThread::GetCurrentThread() { return OSGetCurrentThread(); }

bool GThread::AreThreadsEqual(void* a, void* b)
{
    if (a == nullptr || b == nullptr) return a == b;
    return pthread_equal(OSGetPthreadFromOSData(a), OSGetPthreadFromOSData(b)) != 0;
}
