#include "LinkFixture.h"
#include "SDKPlugPlug.h"

using ::testing::IsEmpty;

namespace {

constexpr int kNotLoaded = 31;

template <class Function>
void* Address(Function function)
{
    return reinterpret_cast<void*>(function);
}

class EventBusLoading : public LinkFixture {
protected:
    int LoadFrom(const std::string& variant)
    {
        UseFrameworks(variant);
        return binding.Load();
    }
    // Returns whether all functions are bound to that library.
    bool IsBoundTo(const ScriptedPlugPlugLibrary& library) const
    {
        return library &&
               Address(binding.PlugPlugLoadExtension) == library.Find("PlugPlugLoadExtension") &&
               Address(binding.PlugPlugUnloadExtension) ==
                   library.Find("PlugPlugUnloadExtension") &&
               Address(binding.PlugPlugAddEventListener) ==
                   library.Find("PlugPlugAddEventListener") &&
               Address(binding.PlugPlugRemoveEventListener) ==
                   library.Find("PlugPlugRemoveEventListener") &&
               Address(binding.PlugPlugDispatchEvent) == library.Find("PlugPlugDispatchEvent");
    }

    SDKPlugPlug binding;
};

TEST_F(EventBusLoading, PrefersOwlIfBothExist)
{
    const ScriptedPlugPlugLibrary owl("both", "PlugPlugOwl");
    const ScriptedPlugPlugLibrary plain("both", "PlugPlug");
    ASSERT_TRUE(owl && plain);
    EXPECT_EQ(0, LoadFrom("both"));
    EXPECT_TRUE(IsBoundTo(owl));
    EXPECT_FALSE(IsBoundTo(plain));
    EXPECT_NE(nullptr, binding.bundle);
}

TEST_F(EventBusLoading, OpensOwlAlone)
{
    const ScriptedPlugPlugLibrary owl("owl-only");
    EXPECT_EQ(0, LoadFrom("owl-only"));
    EXPECT_TRUE(IsBoundTo(owl));
}

TEST_F(EventBusLoading, FallsBackToThePlainFramework)
{
    const ScriptedPlugPlugLibrary plain("plain-only", "PlugPlug");
    EXPECT_EQ(0, LoadFrom("plain-only"));
    EXPECT_TRUE(IsBoundTo(plain));
}

TEST_F(EventBusLoading, BindsTheFunctionsWithoutCallingThem)
{
    const ScriptedPlugPlugLibrary owl("owl-only");
    EXPECT_EQ(0, LoadFrom("owl-only"));
    EXPECT_THAT(owl->calls, IsEmpty());
}

TEST_F(EventBusLoading, Returns31ForAFolderWithoutEither)
{
    EXPECT_EQ(kNotLoaded, LoadFrom("none"));
    EXPECT_EQ(nullptr, binding.bundle);
    EXPECT_EQ(nullptr, Address(binding.PlugPlugLoadExtension));
}

TEST_F(EventBusLoading, Returns31ForAMissingFolder)
{
    host.privateFrameworksPath = "/no/such/folder";
    EXPECT_EQ(kNotLoaded, binding.Load());
    host.privateFrameworksPath = "";
    EXPECT_EQ(kNotLoaded, binding.Load());
    EXPECT_EQ(nullptr, binding.bundle);
}

TEST_F(EventBusLoading, Returns31IfOwlIsNoLibrary)
{
    EXPECT_EQ(kNotLoaded, LoadFrom("not-a-library"));
    EXPECT_EQ(nullptr, Address(binding.PlugPlugLoadExtension));
}

// The choice depends on which folder exists, and not on whether it can be opened.
TEST_F(EventBusLoading, DoesNotFallBackIfOwlExistsButIsNoLibrary)
{
    EXPECT_EQ(kNotLoaded, LoadFrom("owl-not-a-library"));
    EXPECT_EQ(nullptr, Address(binding.PlugPlugLoadExtension));
}

TEST_F(EventBusLoading, WritesNoTrace)
{
    EXPECT_EQ(kNotLoaded, LoadFrom("none"));
    EXPECT_EQ(kNotLoaded, LoadFrom("missing-PlugPlugDispatchEvent"));
    EXPECT_EQ(0, LoadFrom("both"));
    EXPECT_THAT(TraceTexts(), IsEmpty());
    EXPECT_THAT(host.alerts, IsEmpty());
}

TEST_F(EventBusLoading, LoadsAgain)
{
    const ScriptedPlugPlugLibrary owl("owl-only");
    EXPECT_EQ(0, LoadFrom("owl-only"));
    EXPECT_EQ(0, LoadFrom("owl-only"));
    EXPECT_TRUE(IsBoundTo(owl));
}

class EventBusWithoutAName : public EventBusLoading, public ::testing::WithParamInterface<int> {};

constexpr const char* kNames[] = {"PlugPlugLoadExtension", "PlugPlugUnloadExtension",
                                  "PlugPlugAddEventListener", "PlugPlugRemoveEventListener",
                                  "PlugPlugDispatchEvent"};

TEST_P(EventBusWithoutAName, KeepsTheFunctionsBeforeItBound)
{
    EXPECT_EQ(kNotLoaded, LoadFrom(std::string("missing-") + kNames[GetParam()]));
    const void* const members[] = {
        Address(binding.PlugPlugLoadExtension), Address(binding.PlugPlugUnloadExtension),
        Address(binding.PlugPlugAddEventListener), Address(binding.PlugPlugRemoveEventListener),
        Address(binding.PlugPlugDispatchEvent)};
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(index < GetParam(), members[index] != nullptr) << kNames[index];
    }
    EXPECT_NE(nullptr, binding.bundle);
}

INSTANTIATE_TEST_SUITE_P(Names, EventBusWithoutAName, ::testing::Range(0, 5),
                         [](const auto& row) { return std::string(kNames[row.param]); });

}  // namespace
