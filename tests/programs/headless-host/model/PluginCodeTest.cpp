#include "model/PluginCode.h"

#include <gtest/gtest.h>

#include <thread>

using namespace headless;

TEST(PluginCodeTest, CountsAllocationsOnlyWhileThePluginsCodeRuns)
{
    const size_t before = plugin_code::GetAllocationCount();
    EXPECT_FALSE(plugin_code::CountAllocation());
    EXPECT_EQ(before, plugin_code::GetAllocationCount());
    const plugin_code::Scope plugin(true);
    EXPECT_FALSE(plugin_code::CountAllocation());
    {
        const plugin_code::Scope host(false);
        EXPECT_FALSE(plugin_code::CountAllocation());
    }
    EXPECT_FALSE(plugin_code::CountAllocation()) << "the scope of the host has ended";
    std::thread([] { EXPECT_FALSE(plugin_code::CountAllocation()); }).join();
    EXPECT_EQ(before + 2, plugin_code::GetAllocationCount());
}

TEST(PluginCodeTest, OnlyTheAllocationOfThisNumberFails)
{
    plugin_code::FailAllocation(2);
    EXPECT_FALSE(plugin_code::CountAllocation()) << "of the host";
    const plugin_code::Scope plugin(true);
    EXPECT_FALSE(plugin_code::CountAllocation());
    EXPECT_TRUE(plugin_code::CountAllocation());
    EXPECT_FALSE(plugin_code::CountAllocation());
}

TEST(PluginCodeTest, ProcessesAreHiddenFromThePluginAlone)
{
    plugin_code::HideProcesses(true);
    EXPECT_FALSE(plugin_code::AreProcessesHidden());
    {
        const plugin_code::Scope plugin(true);
        EXPECT_TRUE(plugin_code::AreProcessesHidden());
        plugin_code::HideProcesses(false);
        EXPECT_FALSE(plugin_code::AreProcessesHidden());
    }
}
