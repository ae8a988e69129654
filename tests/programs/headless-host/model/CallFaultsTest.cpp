#include "model/CallFaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "AIError.h"
#include "ATEWrappers.h"

using headless::CallFaults;
using headless::Fault;
using testing::ElementsAre;

namespace {

// The type of the exception that ThrowFault throws.
std::string Catch(const std::string& type)
{
    try {
        headless::ThrowFault(type);
    } catch (const ai::Error&) {
        return "ai::Error";
    } catch (const ATE::Exception&) {
        return "ATE::Exception";
    } catch (int) {
        return "int";
    } catch (const std::exception&) {
        return "std::exception";
    } catch (...) {
        return "foreign";
    }
}

}  // namespace

TEST(CallFaultsTest, ReadsAStatusOrAnException)
{
    Fault fault;
    EXPECT_TRUE(headless::ReadFault("-7", fault));
    EXPECT_EQ(-7, fault.status);
    EXPECT_EQ("", fault.exceptionType);
    for (const char* const type : headless::kFaultExceptions) {
        EXPECT_TRUE(headless::ReadFault(std::string("throw:") + type, fault)) << type;
        EXPECT_EQ(type, fault.exceptionType);
    }
    for (const char* const wrong :
         {"", "0", "1x", " 1", "99999999999", "throw:", "throw:long", "throw", "int"}) {
        EXPECT_FALSE(headless::ReadFault(wrong, fault)) << wrong;
    }
}

TEST(CallFaultsTest, ThrowsTheTypeThatIsNamed)
{
    for (const char* const type : headless::kFaultExceptions) EXPECT_EQ(type, Catch(type));
    EXPECT_EQ("foreign", Catch("any other"));
}

TEST(CallFaultsTest, OnlyTheCallOfThisNumberFails)
{
    CallFaults faults;
    EXPECT_EQ(nullptr, faults.CountCall("before"));
    EXPECT_FALSE(faults.IsPending());
    faults.FailCall(2, {-5, ""});
    EXPECT_TRUE(faults.IsPending());
    EXPECT_EQ(nullptr, faults.CountCall("one"));
    const Fault* const fault = faults.CountCall("two");
    ASSERT_NE(nullptr, fault);
    EXPECT_EQ(-5, fault->status);
    EXPECT_FALSE(faults.IsPending());
    EXPECT_EQ(nullptr, faults.CountCall("three"));
    EXPECT_EQ(4U, faults.GetCount());
    EXPECT_THAT(faults.GetFailedCalls(), ElementsAre("two -5"));
}

TEST(CallFaultsTest, ALaterOrderReplacesAnEarlierOne)
{
    CallFaults faults;
    faults.FailCall(1, {-5, ""});
    faults.FailCall(2, {0, "int"});
    EXPECT_EQ(nullptr, faults.CountCall("one"));
    EXPECT_NE(nullptr, faults.CountCall("two"));
    faults.NoteFailedCall("three", 9);
    EXPECT_THAT(faults.GetFailedCalls(), ElementsAre("two throw:int", "three 9"));
}

TEST(CallFaults, TheListenerHearsOfAFailedCallBeforeItFails)
{
    CallFaults faults;
    std::vector<std::string> heard;
    faults.SetListener([&heard](const std::string& call) { heard.push_back(call); });
    faults.FailCall(2, {0, "int"});
    (void)faults.CountCall("one");
    EXPECT_THAT(heard, testing::IsEmpty());
    (void)faults.CountCall("two");
    faults.NoteFailedCall("three", 9);
    EXPECT_THAT(heard, ElementsAre("two throw:int", "three 9"));
}
