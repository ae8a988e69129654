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

int RecordDispatch(const Event* event)
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

TEST_F(EventBusBinding, BothOperationsReturnOneWithoutABus)
{
    EXPECT_EQ(1, binding.AddEventListener("type", SetInt, nullptr));
    EXPECT_EQ(1, binding.DispatchEvent(&event));
}

TEST_F(EventBusBinding, AddsTheListenerAndReturnsTheBussAnswer)
{
    int value = 0;
    binding.PlugPlugAddEventListener = AddListener;
    EXPECT_EQ(42, binding.AddEventListener("type", SetInt, &value));
    EXPECT_EQ("type", gType);
    EXPECT_EQ(&value, gContext);
    EXPECT_EQ(5, value);
}

TEST_F(EventBusBinding, AddingAListenerNeedsNoOtherFunction)
{
    int value = 0;
    binding.PlugPlugAddEventListener = AddListener;
    ASSERT_TRUE(binding.PlugPlugRemoveEventListener == nullptr);
    EXPECT_EQ(42, binding.AddEventListener("type", SetInt, &value));
    EXPECT_EQ(1, gAdded);
}

// DispatchEvent tests PlugPlugRemoveEventListener, and not the function that it calls.
TEST_F(EventBusBinding, DoesNotDispatchWithoutTheRemovalFunction)
{
    binding.PlugPlugDispatchEvent = RecordDispatch;
    EXPECT_EQ(1, binding.DispatchEvent(&event));
    EXPECT_EQ(0, gDispatched);
}

TEST_F(EventBusBinding, DispatchesWithTheRemovalFunction)
{
    binding.PlugPlugRemoveEventListener =
        reinterpret_cast<decltype(binding.PlugPlugRemoveEventListener)>(&RecordDispatch);
    binding.PlugPlugDispatchEvent = RecordDispatch;
    EXPECT_EQ(43, binding.DispatchEvent(&event));
    EXPECT_EQ(1, gDispatched);
    EXPECT_EQ(&event, gEvent);
}

}  // namespace
