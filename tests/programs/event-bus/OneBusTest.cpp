#include <gmock/gmock.h>
#include <stdlib.h>

#include <filesystem>

#include "ScratchFolder.h"
#include "TestListener.h"

using testing::ElementsAre;

TEST(PlugPlugOneBus, BothFrameworksShareTheBus)
{
    OpenFramework owl("PlugPlugOwl");
    OpenFramework plain("PlugPlug");
    const TestListener throughOwl(owl, "some.type");
    const TestListener throughPlain(plain, "some.type");
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(plain, "some.type", "one"));
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(owl, "some.type", "two"));
    EXPECT_THAT(throughOwl.data, ElementsAre("one", "two"));
    EXPECT_THAT(throughPlain.data, ElementsAre("one", "two"));
}

TEST(PlugPlugOneBus, AListenerIsRemovedThroughTheOtherFramework)
{
    OpenFramework owl("PlugPlugOwl");
    OpenFramework plain("PlugPlug");
    const auto ignore = [](const PlugPlugEvent*, void*) {};
    ASSERT_EQ(kPlugPlugSuccess, owl.Add("some.type", ignore, nullptr));
    EXPECT_EQ(kPlugPlugSuccess, plain.Remove("some.type", ignore, nullptr));
    EXPECT_EQ(kPlugPlugNotFound, owl.Remove("some.type", ignore, nullptr));
}

TEST(PlugPlugOneBus, AFrameworkOpenedTwiceSharesTheBus)
{
    OpenFramework first("PlugPlugOwl");
    const TestListener listener(first, "some.type");
    OpenFramework second("PlugPlugOwl");
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(second, "some.type", "one"));
    EXPECT_THAT(listener.data, ElementsAre("one"));
}

TEST(PlugPlugOneBus, FrameworksInAnotherFolderShareTheBus)
{
    namespace fs = std::filesystem;
    const ScratchFolder scratch;
    const std::string folder = scratch.Path();
    fs::copy(PLUG_PLUG_FRAMEWORKS, folder, fs::copy_options::recursive);
    {
        OpenFramework here("PlugPlugOwl");
        OpenFramework there("PlugPlugOwl", folder);
        ASSERT_NE(nullptr, there.Dispatch);
        EXPECT_NE(here.Dispatch, there.Dispatch);
        const TestListener listener(here, "some.type");
        EXPECT_EQ(kPlugPlugSuccess, DispatchText(there, "some.type", "one"));
        EXPECT_THAT(listener.data, ElementsAre("one"));
    }
}
