#include "LinkTest.h"
#include "SDKPlugPlug.h"

using ::testing::IsEmpty;

namespace {

constexpr int kNotLoaded = 31;

template <class Function>
void* Address(Function function)
{
    return reinterpret_cast<void*>(function);
}

class EventBusLoading : public LinkTest {
protected:
    int LoadFrom(const std::string& variant)
    {
        UseFrameworks(variant);
        return binding.Load();
    }
    // Whether what was bound is of that library.
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

TEST_F(EventBusLoading, OwlWinsWhenBothAreThere)
{
    const ScriptedPlugPlugLibrary owl("both", "PlugPlugOwl");
    const ScriptedPlugPlugLibrary plain("both", "PlugPlug");
    ASSERT_TRUE(owl && plain);
    EXPECT_EQ(LoadFrom("both"), 0);
    EXPECT_TRUE(IsBoundTo(owl));
    EXPECT_FALSE(IsBoundTo(plain));
    EXPECT_NE(binding.bundle, nullptr);
}

TEST_F(EventBusLoading, OwlAloneIsOpened)
{
    const ScriptedPlugPlugLibrary owl("owl-only");
    EXPECT_EQ(LoadFrom("owl-only"), 0);
    EXPECT_TRUE(IsBoundTo(owl));
}

TEST_F(EventBusLoading, PlainOneIsTheFallback)
{
    const ScriptedPlugPlugLibrary plain("plain-only", "PlugPlug");
    EXPECT_EQ(LoadFrom("plain-only"), 0);
    EXPECT_TRUE(IsBoundTo(plain));
}

TEST_F(EventBusLoading, FunctionsAreBoundAndNotCalled)
{
    const ScriptedPlugPlugLibrary owl("owl-only");
    EXPECT_EQ(LoadFrom("owl-only"), 0);
    EXPECT_THAT(owl->calls, IsEmpty());
}

TEST_F(EventBusLoading, FolderWithoutEitherGives31)
{
    EXPECT_EQ(LoadFrom("none"), kNotLoaded);
    EXPECT_EQ(binding.bundle, nullptr);
    EXPECT_EQ(Address(binding.PlugPlugLoadExtension), nullptr);
}

TEST_F(EventBusLoading, FolderThatIsNotThereGives31)
{
    host.privateFrameworksPath = "/no/such/folder";
    EXPECT_EQ(binding.Load(), kNotLoaded);
    host.privateFrameworksPath = "";
    EXPECT_EQ(binding.Load(), kNotLoaded);
    EXPECT_EQ(binding.bundle, nullptr);
}

TEST_F(EventBusLoading, OwlThatIsNoLibraryGives31)
{
    EXPECT_EQ(LoadFrom("not-a-library"), kNotLoaded);
    EXPECT_EQ(Address(binding.PlugPlugLoadExtension), nullptr);
}

// What can be reached is chosen, not what can be opened.
TEST_F(EventBusLoading, OwlThatIsNoLibraryIsNotMadeUpForByThePlainOne)
{
    EXPECT_EQ(LoadFrom("owl-not-a-library"), kNotLoaded);
    EXPECT_EQ(Address(binding.PlugPlugLoadExtension), nullptr);
}

TEST_F(EventBusLoading, LeavesNoTrace)
{
    EXPECT_EQ(LoadFrom("none"), kNotLoaded);
    EXPECT_EQ(LoadFrom("missing-PlugPlugDispatchEvent"), kNotLoaded);
    EXPECT_EQ(LoadFrom("both"), 0);
    EXPECT_THAT(TraceTexts(), IsEmpty());
    EXPECT_THAT(host.alerts, IsEmpty());
}

TEST_F(EventBusLoading, CanBeRepeated)
{
    const ScriptedPlugPlugLibrary owl("owl-only");
    EXPECT_EQ(LoadFrom("owl-only"), 0);
    EXPECT_EQ(LoadFrom("owl-only"), 0);
    EXPECT_TRUE(IsBoundTo(owl));
}

class EventBusWithoutAName : public EventBusLoading, public ::testing::WithParamInterface<int> {};

constexpr const char* kNames[] = {"PlugPlugLoadExtension", "PlugPlugUnloadExtension",
                                  "PlugPlugAddEventListener", "PlugPlugRemoveEventListener",
                                  "PlugPlugDispatchEvent"};

TEST_P(EventBusWithoutAName, KeepsThoseInFrontOfItBound)
{
    EXPECT_EQ(LoadFrom(std::string("missing-") + kNames[GetParam()]), kNotLoaded);
    const void* const members[] = {
        Address(binding.PlugPlugLoadExtension), Address(binding.PlugPlugUnloadExtension),
        Address(binding.PlugPlugAddEventListener), Address(binding.PlugPlugRemoveEventListener),
        Address(binding.PlugPlugDispatchEvent)};
    for (int index = 0; index < 5; ++index) {
        EXPECT_EQ(members[index] != nullptr, index < GetParam()) << kNames[index];
    }
    EXPECT_NE(binding.bundle, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Names, EventBusWithoutAName, ::testing::Range(0, 5),
                         [](const auto& row) { return std::string(kNames[row.param]); });

}  // namespace
