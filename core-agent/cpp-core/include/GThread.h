#pragma once

#include <pthread.h>

// The identity of threads: an opaque value of a pointer's size; null means no thread.
class GThread {
public:
    static void* GetCurrentThread();
    static void* OSGetCurrentThread();
    static pthread_t OSGetPthreadFromOSData(void* data);
    // Two null identities are equal.
    static bool AreThreadsEqual(void* a, void* b);
};
