#include "HostInterfaceFixture.h"

namespace {

template <class Suite>
void Fill(ScriptedHost& host, const char* name, int version, Suite*& global)
{
    void* suite = nullptr;
    ASSERT_EQ(kHostSuccess, host.Basic()->AcquireSuite(name, version, &suite));
    global = static_cast<Suite*>(suite);
}

}  // namespace

HostInterfaceTest::HostInterfaceTest()
{
    Fill(host, "AI File Path Suite", 1006, sAIFilePath);
    Fill(host, "AI Unicode String Suite", 1008, sAIUnicodeString);
    Fill(host, "SP Blocks Suite", 2, sSPBlocks);
    Fill(host, "ATE TextFrame Suite", 101, sTextFrame);
    Fill(host, "ATE Story Suite", 1, sStory);
    Fill(host, "ATE Stories Suite", 1, sStories);
    Fill(host, "ATE TextRange Suite", 1, sTextRange);
    Fill(host, "ATE TextRanges Suite", 1, sTextRanges);
    Fill(host, "ATE TextRunsIterator Suite", 1, sTextRunsIterator);
    Fill(host, "ATE CharFeatures Suite", 102, sCharFeatures);
    Fill(host, "ATE CharInspector Suite", 102, sCharInspector);
    Fill(host, "ATE ArrayFontRef Suite", 1, sArrayFontRef);
    Fill(host, "ATE Font Suite", 1, sFont);
    host.ClearCalls();
}

HostInterfaceTest::~HostInterfaceTest() = default;

void HostInterfaceTest::TearDown()
{
    EXPECT_THAT(host.Faults(), ::testing::IsEmpty());
    EXPECT_EQ(0U, host.LiveReferences());
    EXPECT_EQ(0U, host.LivePaths());
    EXPECT_EQ(0U, host.LiveBlocks());
}
