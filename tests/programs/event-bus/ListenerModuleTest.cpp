#include "ListenerModule.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "TestListener.h"

namespace {

class PlugPlugListenerModule : public testing::Test {
protected:
    void SetUp() override
    {
        mModule = dlopen(LISTENER_MODULE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(nullptr, mModule) << dlerror();
        mHandler = reinterpret_cast<PlugPlugEventHandler>(dlsym(mModule, "ListenerModule_Handle"));
        ASSERT_NE(nullptr, mHandler);
        ASSERT_EQ(kPlugPlugSuccess, mFramework.Add("some.type", mHandler, &mRecord));
    }
    void TearDown() override
    {
        Unload();
        // Fails if the listener was dropped after its module was unloaded.
        (void)mFramework.Remove("some.type", mHandler, &mRecord);
    }
    void Unload()
    {
        if (mModule == nullptr) return;
        EXPECT_EQ(0, dlclose(mModule));
        mModule = nullptr;
    }

    OpenFramework mFramework{"PlugPlugOwl"};
    ListenerModuleRecord mRecord = {};
    void* mModule = nullptr;
    PlugPlugEventHandler mHandler = nullptr;
};

}  // namespace

TEST_F(PlugPlugListenerModule, ACListenerSeesEveryField)
{
    const PlugPlugEvent event = {"some.type", csxs::event::kEventScopeApplication, "test", nullptr,
                                 "<data>"};
    EXPECT_EQ(kPlugPlugSuccess, mFramework.Dispatch(&event));
    EXPECT_STREQ("some.type, 1, test, null, <data>", mRecord.lastEvent);
}

TEST_F(PlugPlugListenerModule, AListenerIsNotCalledOnceItsModuleIsUnloaded)
{
    Unload();
    const TestListener other(mFramework, "some.type");
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_EQ(0, mRecord.count);
    EXPECT_EQ(1U, other.data.size());
}

TEST_F(PlugPlugListenerModule, AListenerIsDroppedAfterItsModuleIsUnloaded)
{
    Unload();
    const TestListener other(mFramework, "other.type");
    EXPECT_EQ(kPlugPlugNotFound, mFramework.Remove("some.type", mHandler, &mRecord));
}
