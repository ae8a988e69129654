#include <dlfcn.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <fstream>
#include <string>

namespace {

void LoadAndUnload(int times)
{
    for (int time = 0; time < times; ++time) {
        void* const module = dlopen(PLUG_IN_MODULE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(nullptr, module) << dlerror();
        ASSERT_NE(nullptr, dlsym(module, "PluginMain"));
        ASSERT_EQ(0, dlclose(module));
    }
}

int CountMappings()
{
    std::ifstream maps("/proc/self/maps");
    int count = 0;
    for (std::string line; std::getline(maps, line);) ++count;
    return count;
}

}  // namespace

TEST(Module, LoadsAndUnloadsAThousandTimesWithoutALeak)
{
    LoadAndUnload(10);
    const size_t bytes = mallinfo2().uordblks;
    const int mappings = CountMappings();
    LoadAndUnload(1000);
    // The loader and a sanitizer keep a varying small amount; a leak would count a thousand times.
    EXPECT_LT(mallinfo2().uordblks, bytes + 1000);
    EXPECT_LT(CountMappings(), mappings + 100);
}

TEST(Module, ReturnsSuccessForANullMessage)
{
    void* const module = dlopen(PLUG_IN_MODULE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(nullptr, module) << dlerror();
    typedef int (*Entry)(char*, char*, void*);
    const auto entry = reinterpret_cast<Entry>(dlsym(module, "PluginMain"));
    ASSERT_NE(nullptr, entry);
    char caller[] = "SP Interface";
    char selector[] = "Startup";
    EXPECT_EQ(0, entry(caller, selector, nullptr));
    EXPECT_EQ(0, dlclose(module));
}
