#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>

#include "SDKPlugPlug.h"

namespace {

using csxs::event::Event;

constexpr std::size_t kWord = sizeof(void*);

static_assert(sizeof(SDKPlugPlug) == 6 * kWord);
static_assert(!std::is_polymorphic_v<SDKPlugPlug>);
static_assert(std::is_standard_layout_v<SDKPlugPlug>);
static_assert(offsetof(SDKPlugPlug, bundle) == 0);
static_assert(offsetof(SDKPlugPlug, PlugPlugLoadExtension) == 1 * kWord);
static_assert(offsetof(SDKPlugPlug, PlugPlugUnloadExtension) == 2 * kWord);
static_assert(offsetof(SDKPlugPlug, PlugPlugAddEventListener) == 3 * kWord);
static_assert(offsetof(SDKPlugPlug, PlugPlugRemoveEventListener) == 4 * kWord);
static_assert(offsetof(SDKPlugPlug, PlugPlugDispatchEvent) == 5 * kWord);

static_assert(sizeof(csxs::event::EventScope) == 4);
static_assert(sizeof(Event) == 40);
static_assert(offsetof(Event, type) == 0);
static_assert(offsetof(Event, scope) == 8);
static_assert(offsetof(Event, appId) == 16);
static_assert(offsetof(Event, extensionId) == 24);
static_assert(offsetof(Event, data) == 32);

int gAdded = 0;
int gDispatched = 0;
const Event* gEvent = nullptr;
void* gContext = nullptr;
std::string gType;

int AddListener(const char* type, void (*handler)(const Event*, void*), void* context)
{
    ++gAdded;
    gType = type;
    gContext = context;
    handler(nullptr, context);
    return 42;
}

int DispatchToNobody(const Event* event)
{
    ++gDispatched;
    gEvent = event;
    return 43;
}

void SetInt(const Event*, void* context) { *static_cast<int*>(context) = 5; }

class EventBusBinding : public testing::Test {
protected:
    EventBusBinding() { gAdded = gDispatched = 0; }

    SDKPlugPlug binding;
    Event event{};
};

TEST_F(EventBusBinding, AllMembersAreNullAtFirst)
{
    EXPECT_TRUE(binding.bundle == nullptr);
    EXPECT_TRUE(binding.PlugPlugLoadExtension == nullptr);
    EXPECT_TRUE(binding.PlugPlugUnloadExtension == nullptr);
    EXPECT_TRUE(binding.PlugPlugAddEventListener == nullptr);
    EXPECT_TRUE(binding.PlugPlugRemoveEventListener == nullptr);
    EXPECT_TRUE(binding.PlugPlugDispatchEvent == nullptr);
}

TEST_F(EventBusBinding, WithoutABusBothOperationsGiveOne)
{
    EXPECT_EQ(binding.AddEventListener("type", SetInt, nullptr), 1);
    EXPECT_EQ(binding.DispatchEvent(&event), 1);
}

TEST_F(EventBusBinding, ListenerIsPassedOnAndTheAnswerComesBack)
{
    int value = 0;
    binding.PlugPlugAddEventListener = AddListener;
    EXPECT_EQ(binding.AddEventListener("type", SetInt, &value), 42);
    EXPECT_EQ(gType, "type");
    EXPECT_EQ(gContext, &value);
    EXPECT_EQ(value, 5);
}

TEST_F(EventBusBinding, AddingNeedsNoOtherFunction)
{
    int value = 0;
    binding.PlugPlugAddEventListener = AddListener;
    ASSERT_TRUE(binding.PlugPlugRemoveEventListener == nullptr);
    EXPECT_EQ(binding.AddEventListener("type", SetInt, &value), 42);
    EXPECT_EQ(gAdded, 1);
}

// The dispatch asks whether the removal is bound.
TEST_F(EventBusBinding, EventIsNotDispatchedWithoutTheRemoval)
{
    binding.PlugPlugDispatchEvent = DispatchToNobody;
    EXPECT_EQ(binding.DispatchEvent(&event), 1);
    EXPECT_EQ(gDispatched, 0);
}

TEST_F(EventBusBinding, EventIsDispatchedWithTheRemovalAlone)
{
    binding.PlugPlugRemoveEventListener =
        reinterpret_cast<decltype(binding.PlugPlugRemoveEventListener)>(&DispatchToNobody);
    binding.PlugPlugDispatchEvent = DispatchToNobody;
    EXPECT_EQ(binding.DispatchEvent(&event), 43);
    EXPECT_EQ(gDispatched, 1);
    EXPECT_EQ(gEvent, &event);
}

}  // namespace
