#pragma once

#include <atomic>
#include <thread>
#include <vector>

// Runs body(0) to body(count - 1), each on a thread of its own, all started at the same time.
// Returns when all have ended.
template <class Body>
void InThreads(int count, Body body)
{
    std::atomic<bool> isOpen{false};
    std::vector<std::thread> threads;
    for (int index = 0; index < count; ++index) {
        threads.emplace_back([&, index] {
            while (!isOpen) std::this_thread::yield();
            body(index);
        });
    }
    isOpen = true;
    for (std::thread& thread : threads) thread.join();
}
