#include "GThread.h"

static_assert(sizeof(pthread_t) == sizeof(void*), "a thread's identity is of a pointer's size");

namespace {

// An integer on one system, a pointer on another: the C cast serves both.
void* ToIdentity(pthread_t thread) { return (void*)thread; }

}  // namespace

void* GThread::OSGetCurrentThread() { return ToIdentity(pthread_self()); }

pthread_t GThread::OSGetPthreadFromOSData(void* data) { return (pthread_t)data; }
