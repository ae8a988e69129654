#include <new>

#include "AllocationCounter.h"
#include "PCILoaderFixture.h"

namespace {

class PCILoaderWithoutMemory : public PCILoaderTest {};

// A table that is shared before it is filled would be used by the next message.
TEST_F(PCILoaderWithoutMemory, SharesOnlyACompleteTable)
{
    const std::string framework = Framework("complete");
    std::size_t nth = 0;
    bool isLoaded = false;
    while (!isLoaded && ++nth < 1000) {
        // Opened before, so that every attempt makes the same allocations.
        ASSERT_NE(nullptr, LoadDllOrFramework(framework.c_str(), nullptr, 0));
        AllocationCounter::FailNth(nth);
        try {
            isLoaded = PCILoader::GetThisSharedInstance(framework) != nullptr;
        } catch (const std::bad_alloc&) {
            EXPECT_EQ(nullptr, PCILoader::sSharedInstance) << "allocation " << nth;
        }
        AllocationCounter::FailNth(0);
        if (PCILoader::sSharedInstance != nullptr) break;
    }
    EXPECT_LT(3U, nth);
    ASSERT_TRUE(isLoaded);
    EXPECT_EQ(framework, PCILoader::sSharedInstance->frameworkPath);
    EXPECT_EQ("4.5.6", PCILoader::sSharedInstance->frameworkVersion);
    EXPECT_EQ(0, PCILoader::sSharedInstance->missingFunctionCount);
    EXPECT_NE(nullptr, PCILoader::sSharedInstance->pfIdleEvent);
}

}  // namespace
