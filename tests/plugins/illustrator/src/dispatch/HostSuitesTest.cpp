#include "HostSuites.h"

#include "ExpectedSuites.h"
#include "MessageFixture.h"
#include "SuiteTable.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class HostSuites : public MessageFixture {
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

TEST_P(SuiteRow, HasNameVersionAndGlobal)
{
    const ExpectedSuite& expected = kExpectedSuites[GetParam()];
    const SuiteImport& row = imports[GetParam()];
    EXPECT_STREQ(expected.name, row.name);
    EXPECT_EQ(expected.version, row.version);
    EXPECT_EQ(expected.global, row.target);
}

TEST_P(SuiteRow, IsAcquiredIntoItsGlobalAndReleased)
{
    const ExpectedSuite& expected = kExpectedSuites[GetParam()];
    ASSERT_EQ(0, AcquireSuites(host.Basic()));
    ASSERT_EQ(99U, host.Calls().size());
    EXPECT_EQ(Call("AcquireSuite", expected), host.Calls()[GetParam()]);
    EXPECT_NE(nullptr, HeldBy(expected));
    host.ClearCalls();
    EXPECT_EQ(0, ReleaseSuites());
    ASSERT_EQ(99U, host.Calls().size());
    EXPECT_EQ(Call("ReleaseSuite", expected), host.Calls()[GetParam()]);
    EXPECT_EQ(nullptr, HeldBy(expected));
    EXPECT_EQ(0, host.SuiteReferences(expected.name, expected.version));
}

TEST_P(SuiteRow, RefusalLeavesTheRowsBeforeItAcquired)
{
    const ExpectedSuite& expected = kExpectedSuites[GetParam()];
    host.RefuseSuite(expected.name, expected.version, 0x21535554);
    EXPECT_EQ(0x21535554, AcquireSuites(host.Basic()));
    EXPECT_EQ(static_cast<int>(GetParam()), FilledGlobals());
    EXPECT_EQ(GetParam() + 1, host.Calls().size());
    EXPECT_EQ(1U, CountTraces("Error 0x21535554 acquiring suite '" + std::string(expected.name) +
                              "', version " + std::to_string(expected.version)));
    EXPECT_EQ(0U, sAcquireCount);
}

INSTANTIATE_TEST_SUITE_P(All, SuiteRow, ::testing::Range<std::size_t>(0, 99));

TEST_F(HostSuites, SecondCallAcquiresNothing)
{
    EXPECT_EQ(0, AcquireSuites(host.Basic()));
    host.ClearCalls();
    EXPECT_EQ(0, AcquireSuites(host.Basic()));
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(1U, sAcquireCount);
}

TEST_F(HostSuites, ReleasingWithACountOf2ReleasesNothing)
{
    EXPECT_EQ(0, AcquireSuites(host.Basic()));
    sAcquireCount = 2;
    host.ClearCalls();
    EXPECT_EQ(0, ReleaseSuites());
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(1U, sAcquireCount);
    EXPECT_EQ(99, FilledGlobals());
}

TEST_F(HostSuites, ReleasingWithACountOf0WrapsAroundForGood)
{
    EXPECT_EQ(0, ReleaseSuites());
    EXPECT_EQ(0xFFFFFFFFU, sAcquireCount);
    EXPECT_EQ(0, AcquireSuites(host.Basic()));
    EXPECT_THAT(host.Calls(), IsEmpty());
    EXPECT_EQ(0, FilledGlobals());
}

TEST_F(HostSuites, RefusedReleaseStopsAndKeepsTheCount)
{
    EXPECT_EQ(0, AcquireSuites(host.Basic()));
    host.ClearCalls();
    host.FailCall("SPBasicSuite.ReleaseSuite", 3, 4711);
    EXPECT_EQ(4711, ReleaseSuites());
    EXPECT_EQ(3U, host.Calls().size());
    EXPECT_EQ(1U, sAcquireCount);
    EXPECT_EQ(97, FilledGlobals());
}

TEST_F(HostSuites, AcquiresAndReleasesOneSuite)
{
    void* suite = nullptr;
    AcquireSuite("AI Timer Suite", 1005, &suite);
    EXPECT_NE(nullptr, suite);
    ReleaseSuite("AI Timer Suite", 1005, &suite);
    EXPECT_EQ(nullptr, suite);
    EXPECT_THAT(host.Calls(), ElementsAre("SPBasicSuite.AcquireSuite(\"AI Timer Suite\", 1005)",
                                          "SPBasicSuite.ReleaseSuite(\"AI Timer Suite\", 1005)"));
}

TEST_F(HostSuites, RefusalOfOneSuiteIsTracedAndThrownAsInt)
{
    host.RefuseSuite("AI Timer Suite", 1005, 4711);
    void* suite = nullptr;
    try {
        AcquireSuite("AI Timer Suite", 1005, &suite);
        FAIL() << "nothing was thrown";
    } catch (int code) {
        EXPECT_EQ(4711, code);
    }
    EXPECT_TRUE(HasTrace("ERROR:  throwing 4711."));
    EXPECT_EQ(nullptr, suite);
}

TEST_F(HostSuites, ReleasingANullSuiteDoesNothing)
{
    void* suite = nullptr;
    ReleaseSuite("AI Timer Suite", 1005, &suite);
    EXPECT_THAT(host.Calls(), IsEmpty());
}

TEST_F(HostSuites, IgnoresAFailureToReleaseOneSuite)
{
    void* suite = nullptr;
    AcquireSuite("AI Timer Suite", 1005, &suite);
    host.FailCall("SPBasicSuite.ReleaseSuite", 1, 4711);
    EXPECT_NO_THROW(ReleaseSuite("AI Timer Suite", 1005, &suite));
    EXPECT_EQ(nullptr, suite);
}

}  // namespace
