#include <dlfcn.h>
#include <gtest/gtest.h>

#include "ListenerModule.h"
#include "OpenFramework.h"
#include "SDKPlugPlug.h"

// The plug-in's binding defines the event itself; the listener uses the definition of the bus.
TEST(PlugPlugBinding, AnEventOfThePluginReachesAListenerOfTheHost)
{
    OpenFramework framework("PlugPlugOwl");
    SDKPlugPlug binding;
    binding.PlugPlugAddEventListener = framework.Add;
    binding.PlugPlugRemoveEventListener = reinterpret_cast<void*>(framework.Remove);
    binding.PlugPlugDispatchEvent = framework.Dispatch;

    void* const module = dlopen(LISTENER_MODULE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(nullptr, module) << dlerror();
    const auto handler =
        reinterpret_cast<PlugPlugEventHandler>(dlsym(module, "ListenerModule_Handle"));
    ListenerModuleRecord record = {};
    EXPECT_EQ(0, binding.AddEventListener("some.type", handler, &record));

    const csxs::event::Event event = {"some.type", csxs::event::kEventScopeApplication, "test",
                                      nullptr, "<payload/>"};
    EXPECT_EQ(0, binding.DispatchEvent(&event));
    EXPECT_EQ(1, record.count);
    EXPECT_STREQ("some.type, 1, test, null, <payload/>", record.lastEvent);

    EXPECT_EQ(0, framework.Remove("some.type", handler, &record));
    EXPECT_EQ(0, dlclose(module));
}
