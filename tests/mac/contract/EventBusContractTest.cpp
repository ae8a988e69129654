#include <gtest/gtest.h>

#include "Platform.h"
#include "SDKPlugPlug.h"
#include "ScriptedPlugPlugLibrary_Linux.h"

namespace {

constexpr int kNotLoaded = 31;

void* Address(int (*function)(const csxs::event::Event*))
{
    return reinterpret_cast<void*>(function);
}

int LoadFrom(SDKPlugPlug& binding, const std::string& variant)
{
    Platform::UsePrivateFrameworks(ScriptedPlugPlugFolder(variant));
    return binding.Load();
}

TEST(EventBusContract, PrefersPlugPlugOwlIfBothExist)
{
    const ScriptedPlugPlugLibrary owl("both", "PlugPlugOwl");
    SDKPlugPlug binding;
    ASSERT_EQ(0, LoadFrom(binding, "both"));
    EXPECT_NE(nullptr, binding.bundle);
    EXPECT_EQ(owl.Find("PlugPlugDispatchEvent"), Address(binding.PlugPlugDispatchEvent));
}

TEST(EventBusContract, FallsBackToPlugPlug)
{
    const ScriptedPlugPlugLibrary plain("plain-only", "PlugPlug");
    SDKPlugPlug binding;
    ASSERT_EQ(0, LoadFrom(binding, "plain-only"));
    EXPECT_EQ(plain.Find("PlugPlugDispatchEvent"), Address(binding.PlugPlugDispatchEvent));
}

TEST(EventBusContract, ChoosesAnExistingPlugPlugOwlEvenIfItCannotBeLoaded)
{
    SDKPlugPlug binding;
    EXPECT_EQ(kNotLoaded, LoadFrom(binding, "owl-not-a-library"));
    EXPECT_EQ(nullptr, Address(binding.PlugPlugDispatchEvent));
}

TEST(EventBusContract, MissingFunctionLeavesThoseBeforeItBound)
{
    SDKPlugPlug binding;
    EXPECT_EQ(kNotLoaded, LoadFrom(binding, "missing-PlugPlugRemoveEventListener"));
    EXPECT_NE(nullptr, binding.PlugPlugLoadExtension);
    EXPECT_NE(nullptr, reinterpret_cast<void*>(binding.PlugPlugAddEventListener));
    EXPECT_EQ(nullptr, binding.PlugPlugRemoveEventListener);
    EXPECT_EQ(nullptr, Address(binding.PlugPlugDispatchEvent));
}

TEST(EventBusContract, FailsWithoutAFrameworksFolder)
{
    SDKPlugPlug binding;
    Platform::UsePrivateFrameworks("/no/such/folder");
    EXPECT_EQ(kNotLoaded, binding.Load());
    EXPECT_EQ(nullptr, binding.bundle);
    EXPECT_EQ(kNotLoaded, LoadFrom(binding, "none"));
    EXPECT_EQ(nullptr, binding.bundle);
}

TEST(EventBusContract, LeaksNoReferenceExceptTheBundle)
{
    if (!Platform::kCountsReferences) GTEST_SKIP() << "references are not counted";
    SDKPlugPlug binding;
    const long before = Platform::LiveReferences();
    EXPECT_EQ(0, LoadFrom(binding, "plain-only"));
    EXPECT_LE(Platform::LiveReferences() - before, 1);
}

}  // namespace
