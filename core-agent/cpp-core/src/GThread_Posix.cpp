#include "GThread.h"

#include <cstring>

static_assert(sizeof(pthread_t) == sizeof(void*), "a thread's identity is of a pointer's size");

// pthread_t is an integer on Linux and a pointer on macOS; copying its bytes works for both.

void* GThread::OSGetCurrentThread()
{
    const pthread_t thread = pthread_self();
    void* identity = nullptr;
    std::memcpy(&identity, &thread, sizeof identity);
    return identity;
}

pthread_t GThread::OSGetPthreadFromOSData(void* data)
{
    pthread_t thread = {};
    std::memcpy(&thread, &data, sizeof thread);
    return thread;
}
