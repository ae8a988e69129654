#pragma once

#include <functional>
#include <string>
#include <vector>

#include "OpenFramework.h"
#include "PlugPlugEvent.h"

// A listener on the bus, from the constructor to the destructor. For each event it appends the data
// to `data` and then runs `action`, which may be empty.
class TestListener {
public:
    TestListener(OpenFramework& framework, std::string type, std::function<void()> action = {})
        : mFramework(framework), mType(std::move(type)), mAction(std::move(action))
    {
        status = mFramework.Add(mType.c_str(), Handle, this);
    }
    // Fails if the test has removed it already.
    ~TestListener() { (void)Remove(); }
    TestListener(const TestListener&) = delete;
    TestListener& operator=(const TestListener&) = delete;

    int AddAgain() { return mFramework.Add(mType.c_str(), Handle, this); }
    int Remove() { return mFramework.Remove(mType.c_str(), Handle, this); }

    int status = -1;                // of adding it
    std::vector<std::string> data;  // of each event, "null" for none

private:
    static void Handle(const PlugPlugEvent* event, void* context)
    {
        auto* const self = static_cast<TestListener*>(context);
        self->data.push_back(event->data != nullptr ? event->data : "null");
        if (self->mAction) self->mAction();
    }

    OpenFramework& mFramework;
    std::string mType;
    std::function<void()> mAction;
};

inline int DispatchText(OpenFramework& framework, const char* type, const char* data)
{
    const PlugPlugEvent event = {type, csxs::event::kEventScopeApplication, "test", nullptr, data};
    return framework.Dispatch(&event);
}
