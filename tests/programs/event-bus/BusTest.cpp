#include <gmock/gmock.h>

#include <stdexcept>

#include "TestListener.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PlugPlugBus : public testing::Test {
protected:
    OpenFramework mFramework{"PlugPlugOwl"};
};

void Ignore(const PlugPlugEvent*, void*) {}

}  // namespace

TEST_F(PlugPlugBus, CallsAListenerWithAnEventOfItsType)
{
    const TestListener listener(mFramework, "some.type");
    EXPECT_EQ(kPlugPlugSuccess, listener.status);
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", nullptr));
    EXPECT_THAT(listener.data, ElementsAre("one", "null"));
}

TEST_F(PlugPlugBus, ComparesTypesByteForByte)
{
    const TestListener listener(mFramework, "some.type");
    for (const char* type : {"some.typ", "some.type.more", "Some.type", ""}) {
        EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, type, "one"));
    }
    EXPECT_THAT(listener.data, IsEmpty());
}

TEST_F(PlugPlugBus, CallsListenersInTheOrderOfAdding)
{
    std::string order;
    const TestListener first(mFramework, "some.type", [&] { order += "1"; });
    const TestListener second(mFramework, "some.type", [&] { order += "2"; });
    const TestListener third(mFramework, "some.type", [&] { order += "3"; });
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_EQ("123", order);
}

TEST_F(PlugPlugBus, CallsAListenerOnceThatWasAddedTwice)
{
    TestListener listener(mFramework, "some.type");
    EXPECT_EQ(kPlugPlugSuccess, listener.AddAgain());
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_THAT(listener.data, ElementsAre("one"));
}

TEST_F(PlugPlugBus, DoesNotCallARemovedListener)
{
    TestListener listener(mFramework, "some.type");
    EXPECT_EQ(kPlugPlugSuccess, listener.Remove());
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_THAT(listener.data, IsEmpty());
    EXPECT_EQ(kPlugPlugNotFound, listener.Remove());
}

TEST_F(PlugPlugBus, RemovesOnlyTheListenerWithThatTypeHandlerAndContext)
{
    const TestListener listener(mFramework, "some.type");
    int context = 0;
    EXPECT_EQ(kPlugPlugNotFound, mFramework.Remove("some.type", Ignore, &context));
    EXPECT_EQ(kPlugPlugNotFound, mFramework.Remove("some.type", Ignore, nullptr));
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_THAT(listener.data, ElementsAre("one"));
}

TEST_F(PlugPlugBus, CopiesTheTypeOfAListener)
{
    std::string type = "some.type";
    ASSERT_EQ(kPlugPlugSuccess, mFramework.Add(type.c_str(), Ignore, nullptr));
    type = "else.what";
    EXPECT_EQ(kPlugPlugSuccess, mFramework.Remove("some.type", Ignore, nullptr));
}

TEST_F(PlugPlugBus, RefusesNullArguments)
{
    EXPECT_EQ(kPlugPlugNullArgument, mFramework.Add(nullptr, Ignore, nullptr));
    EXPECT_EQ(kPlugPlugNullArgument, mFramework.Add("some.type", nullptr, nullptr));
    EXPECT_EQ(kPlugPlugNullArgument, mFramework.Remove(nullptr, Ignore, nullptr));
    EXPECT_EQ(kPlugPlugNullArgument, mFramework.Remove("some.type", nullptr, nullptr));
    EXPECT_EQ(kPlugPlugNullArgument, mFramework.Dispatch(nullptr));
    EXPECT_EQ(kPlugPlugNullArgument, DispatchText(mFramework, nullptr, "one"));
    EXPECT_EQ(kPlugPlugNullArgument, mFramework.LoadExtension(nullptr));
    EXPECT_EQ(kPlugPlugNullArgument, mFramework.UnloadExtension(nullptr));
}

TEST_F(PlugPlugBus, ReportsThatThereAreNoExtensions)
{
    EXPECT_EQ(kPlugPlugNotFound, mFramework.LoadExtension("some.extension"));
    EXPECT_EQ(kPlugPlugNotFound, mFramework.UnloadExtension("some.extension"));
}

TEST_F(PlugPlugBus, DiscardsAnExceptionOfAListenerAndCallsTheOthers)
{
    const TestListener first(mFramework, "some.type", [] { throw std::runtime_error("thrown"); });
    const TestListener second(mFramework, "some.type");
    EXPECT_EQ(kPlugPlugListenerFailed, DispatchText(mFramework, "some.type", "one"));
    EXPECT_THAT(second.data, ElementsAre("one"));
}
