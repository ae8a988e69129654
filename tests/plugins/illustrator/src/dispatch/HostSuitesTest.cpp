#include "HostSuites.h"

#include "ExpectedSuites.h"
#include "MessageFixture.h"
#include "SuiteTable.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class HostSuites : public MessageTest {
protected:
    HostSuites() { sSPBasic = host.Basic(); }

    int FilledGlobals() const
    {
        int filled = 0;
        for (const ExpectedSuite& suite : kExpectedSuites) filled += HeldBy(suite) != nullptr;
        return filled;
    }
    static std::string Call(const char* operation, const ExpectedSuite& suite)
    {
        return std::string("SPBasicSuite.") + operation + "(\"" + suite.name + "\", " +
               std::to_string(suite.version) + ")";
    }
};

class SuiteRow : public HostSuites, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(SuiteRow, NamesVersionAndGlobal)
{
    const ExpectedSuite& expected = kExpectedSuites[GetParam()];
    const SuiteImport& row = imports[GetParam()];
    EXPECT_STREQ(row.name, expected.name);
    EXPECT_EQ(row.version, expected.version);
    EXPECT_EQ(row.target, expected.global);
}

TEST_P(SuiteRow, IsAskedForFillsItsGlobalAndIsGivenBack)
{
    const ExpectedSuite& expected = kExpectedSuites[GetParam()];
    ASSERT_EQ(AcquireSuites(host.Basic()), 0);
    ASSERT_EQ(host.Calls().size(), 99U);
    EXPECT_EQ(host.Calls()[GetParam()], Call("AcquireSuite", expected));
    EXPECT_NE(HeldBy(expected), nullptr);
    host.ClearCalls();
    EXPECT_EQ(ReleaseSuites(), 0);
    ASSERT_EQ(host.Calls().size(), 99U);
    EXPECT_EQ(host.Calls()[GetParam()], Call("ReleaseSuite", expected));
    EXPECT_EQ(HeldBy(expected), nullptr);
    EXPECT_EQ(host.SuiteReferences(expected.name, expected.version), 0);
}

// The host refuses this row: those before it are filled, it and the others are not.
TEST_P(SuiteRow, RefusedLeavesThoseBeforeItFilled)
{
    const ExpectedSuite& expected = kExpectedSuites[GetParam()];
    host.RefuseSuite(expected.name, expected.version, 0x21535554);
    EXPECT_EQ(AcquireSuites(host.Basic()), 0x21535554);
    EXPECT_EQ(FilledGlobals(), static_cast<int>(GetParam()));
    EXPECT_EQ(host.Calls().size(), GetParam() + 1);
    EXPECT_EQ(CountTraces("Error 0x21535554 acquiring suite '" + std::string(expected.name) +
                          "', version " + std::to_string(expected.version)),
              1U);
    EXPECT_EQ(sAcquireCount, 0U);
}

INSTANTIATE_TEST_SUITE_P(All, SuiteRow, ::testing::Range<std::size_t>(0, 99));

TEST_F(HostSuites, SecondPassAsksForNothing)
{
    EXPECT_EQ(AcquireSuites(host.Basic()), 0);
    host.ClearCalls();
    EXPECT_EQ(AcquireSuites(host.Basic()), 0);
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(sAcquireCount, 1U);
}

TEST_F(HostSuites, ReleasingWithACountOf2ReleasesNothing)
{
    EXPECT_EQ(AcquireSuites(host.Basic()), 0);
    sAcquireCount = 2;
    host.ClearCalls();
    EXPECT_EQ(ReleaseSuites(), 0);
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(sAcquireCount, 1U);
    EXPECT_EQ(FilledGlobals(), 99);
}

TEST_F(HostSuites, ReleasingWithACountOf0GoesBelowItForGood)
{
    EXPECT_EQ(ReleaseSuites(), 0);
    EXPECT_EQ(sAcquireCount, 0xFFFFFFFFU);
    EXPECT_EQ(AcquireSuites(host.Basic()), 0);
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(FilledGlobals(), 0);
}

TEST_F(HostSuites, RefusedReleaseStopsTheWalkAndKeepsTheCount)
{
    EXPECT_EQ(AcquireSuites(host.Basic()), 0);
    host.ClearCalls();
    host.FailCall("SPBasicSuite.ReleaseSuite", 3, 4711);
    EXPECT_EQ(ReleaseSuites(), 4711);
    EXPECT_EQ(host.Calls().size(), 3U);
    EXPECT_EQ(sAcquireCount, 1U);
    EXPECT_EQ(FilledGlobals(), 97);
}

TEST_F(HostSuites, OneSuiteIsAcquiredAndGivenBack)
{
    void* suite = nullptr;
    AcquireSuite("AI Timer Suite", 1005, &suite);
    EXPECT_NE(suite, nullptr);
    ReleaseSuite("AI Timer Suite", 1005, &suite);
    EXPECT_EQ(suite, nullptr);
    EXPECT_THAT(host.Calls(), ElementsAre("SPBasicSuite.AcquireSuite(\"AI Timer Suite\", 1005)",
                                          "SPBasicSuite.ReleaseSuite(\"AI Timer Suite\", 1005)"));
}

TEST_F(HostSuites, OneSuiteRefusedIsATracedInt)
{
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    void* suite = nullptr;
    try {
        AcquireSuite("AI Timer Suite", 1005, &suite);
        FAIL() << "nothing was thrown";
    } catch (int code) {
        EXPECT_EQ(code, 4711);
    }
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_EQ(suite, nullptr);
}

TEST_F(HostSuites, ReleasingANullSuiteDoesNothing)
{
    void* suite = nullptr;
    ReleaseSuite("AI Timer Suite", 1005, &suite);
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(HostSuites, FailureToReleaseOneIsNotLookedAt)
{
    void* suite = nullptr;
    AcquireSuite("AI Timer Suite", 1005, &suite);
    host.FailCall("SPBasicSuite.ReleaseSuite", 1, 4711);
    EXPECT_NO_THROW(ReleaseSuite("AI Timer Suite", 1005, &suite));
    EXPECT_EQ(suite, nullptr);
}

}  // namespace
