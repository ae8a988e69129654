#pragma once

#include <pthread.h>

// The identity of a thread, as an opaque value of a pointer's size; null means "no thread".
//
// Identities are plain values that need no release. The operating system may give an ended thread's
// identity to a new thread. [any thread]
class GThread {
public:
    // Returns the calling thread's identity, never null. Callers use this one.
    static void* GetCurrentThread();
    // The platform's part of GetCurrentThread: the bytes of pthread_self() as a pointer.
    static void* OSGetCurrentThread();
    // Reverses OSGetCurrentThread: the pthread_t whose bytes `data` holds.
    static pthread_t OSGetPthreadFromOSData(void* data);
    // Returns true if both identities are the same thread's, or both are null.
    static bool AreThreadsEqual(void* a, void* b);
};
