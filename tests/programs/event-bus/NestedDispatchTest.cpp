#include <gmock/gmock.h>

#include <memory>

#include "TestListener.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PlugPlugNestedDispatch : public testing::Test {
protected:
    OpenFramework mFramework{"PlugPlugOwl"};
};

}  // namespace

TEST_F(PlugPlugNestedDispatch, AListenerMayDispatchAnotherEvent)
{
    const TestListener request(mFramework, "request", [&] {
        EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "response", "answer"));
    });
    const TestListener response(mFramework, "response");
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "request", "question"));
    EXPECT_THAT(response.data, ElementsAre("answer"));
}

TEST_F(PlugPlugNestedDispatch, AnEndlessChainEndsAtTheGreatestDepth)
{
    int cut = 0;
    const TestListener listener(mFramework, "some.type", [&] {
        const int status = DispatchText(mFramework, "some.type", "again");
        if (status == kPlugPlugNestedTooDeep) ++cut;
    });
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_EQ(1, cut);
    EXPECT_EQ(static_cast<std::size_t>(kPlugPlugDeepestNesting), listener.data.size());
}

TEST_F(PlugPlugNestedDispatch, TheBusWorksAfterAnEndlessChain)
{
    {
        const TestListener listener(mFramework, "some.type", [&] {
            (void)DispatchText(mFramework, "some.type", "again");  // fails at the greatest depth
        });
        EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    }
    const TestListener listener(mFramework, "some.type");
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "two"));
    EXPECT_THAT(listener.data, ElementsAre("two"));
}

TEST_F(PlugPlugNestedDispatch, AListenerAddedInADispatchMissesTheEventUnderWay)
{
    std::unique_ptr<TestListener> added;
    const TestListener listener(mFramework, "some.type", [&] {
        if (!added) added = std::make_unique<TestListener>(mFramework, "some.type");
    });
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_THAT(added->data, IsEmpty());
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "two"));
    EXPECT_THAT(added->data, ElementsAre("two"));
}

TEST_F(PlugPlugNestedDispatch, AListenerRemovedInADispatchMissesTheEventUnderWay)
{
    TestListener* removed = nullptr;
    const TestListener first(mFramework, "some.type", [&] { removed->Remove(); });
    TestListener second(mFramework, "some.type");
    const TestListener third(mFramework, "some.type");
    removed = &second;
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_THAT(second.data, IsEmpty());
    EXPECT_THAT(third.data, ElementsAre("one"));
}

TEST_F(PlugPlugNestedDispatch, AListenerMayRemoveItself)
{
    TestListener* self = nullptr;
    TestListener first(mFramework, "some.type", [&] { self->Remove(); });
    const TestListener second(mFramework, "some.type");
    self = &first;
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "two"));
    EXPECT_THAT(first.data, ElementsAre("one"));
    EXPECT_THAT(second.data, ElementsAre("one", "two"));
}

TEST_F(PlugPlugNestedDispatch, AListenerRemovedAndAddedAgainInADispatchIsANewOne)
{
    TestListener* other = nullptr;
    bool done = false;
    const TestListener first(mFramework, "some.type", [&] {
        if (done) return;
        done = true;
        EXPECT_EQ(kPlugPlugSuccess, other->Remove());
        EXPECT_EQ(kPlugPlugSuccess, other->AddAgain());
    });
    TestListener second(mFramework, "some.type");
    other = &second;
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "one"));
    EXPECT_THAT(second.data, IsEmpty());
    EXPECT_EQ(kPlugPlugSuccess, DispatchText(mFramework, "some.type", "two"));
    EXPECT_THAT(second.data, ElementsAre("two"));
}
