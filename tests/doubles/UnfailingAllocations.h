#pragma once

// While one exists, AllocationCounter::FailNth skips this thread's allocations. Doubles use it, so
// that only allocations of the product fail. Header only: has no effect in a program that isn't
// linked with the counter.
class UnfailingAllocations {
public:
    UnfailingAllocations() { ++sDepth; }
    ~UnfailingAllocations() { --sDepth; }
    UnfailingAllocations(const UnfailingAllocations&) = delete;
    UnfailingAllocations& operator=(const UnfailingAllocations&) = delete;

    static bool Exist() { return sDepth > 0; }

private:
    inline static thread_local int sDepth = 0;
};

// Wraps the function pointer `Member` of a table of functions, so that its allocations don't fail.
template <auto Member>
struct UnfailingCall;

template <class Table, class Result, class... Arguments, Result (*Table::*Member)(Arguments...)>
struct UnfailingCall<Member> {
    static void Install(Table& table)
    {
        if (table.*Member == nullptr || table.*Member == &Call) return;
        sOriginal = table.*Member;
        table.*Member = &Call;
    }

private:
    static Result Call(Arguments... arguments)
    {
        const UnfailingAllocations unfailing;
        return sOriginal(arguments...);
    }

    inline static Result (*sOriginal)(Arguments...) = nullptr;
};
