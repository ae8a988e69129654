#include "checks/HandleRegister.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "ArtTypes.h"
#include "model/HostObjects.h"

using headless::DocumentObject;
using headless::HandleType;
using testing::ElementsAre;
using testing::IsEmpty;

class HandleRegisterTest : public testing::Test {
protected:
    void* IssueString(const void* owner = nullptr)
    {
        return handles.Issue(std::make_shared<headless::StringObject>(), owner);
    }

    headless::RuleViolations violations;
    headless::HandleRegister handles{violations};
};

TEST_F(HandleRegisterTest, FindsTheObjectOfAHandle)
{
    auto document = std::make_shared<DocumentObject>();
    void* const handle = handles.Issue(document);
    EXPECT_EQ(document.get(), handles.Find<DocumentObject>(handle, "GetIt"));
    EXPECT_THAT(violations.Lines(), IsEmpty());
}

TEST_F(HandleRegisterTest, ReportsNullUnknownWrongAndExpiredHandlesDifferently)
{
    void* const string = IssueString();
    EXPECT_EQ(nullptr, handles.Find<DocumentObject>(nullptr, "Op"));
    EXPECT_EQ(nullptr, handles.Find<DocumentObject>(&violations, "Op"));
    EXPECT_EQ(nullptr, handles.Find<DocumentObject>(string, "Op"));
    EXPECT_TRUE(handles.Release(string, HandleType::kString, "Destroy"));
    EXPECT_EQ(nullptr, handles.Find<headless::StringObject>(string, "Op"));
    EXPECT_THAT(
        violations.Lines(),
        ElementsAre("Op: the document is null", "Op: the document was never handed out by the host",
                    "Op: string#1 is of the wrong type, wanted is: document",
                    "Op: string#1 has expired"));
}

TEST_F(HandleRegisterTest, AnAddressBetweenHandlesIsUnknown)
{
    char* const handle = static_cast<char*>(IssueString());
    EXPECT_EQ("unknown", handles.Describe(handle + 1));
    EXPECT_EQ("unknown", handles.Describe(handle + 16)) << "not handed out yet";
}

TEST_F(HandleRegisterTest, NeverUsesAnAddressTwice)
{
    std::set<void*> seen;
    for (int i = 0; i < 20000; ++i) {
        void* const handle = IssueString();
        ASSERT_TRUE(seen.insert(handle).second);
        ASSERT_TRUE(handles.Release(handle, HandleType::kString, "Destroy"));
    }
    for (int i = 0; i < 50; ++i) {
        void* const block = handles.IssueBlock(HandleType::kBlock, 100);
        ASSERT_TRUE(seen.insert(block).second);
        ASSERT_TRUE(handles.Release(block, HandleType::kBlock, "FreeBlock"));
    }
}

TEST_F(HandleRegisterTest, ExpiresWithTheLastReference)
{
    void* const handle = IssueString();
    EXPECT_TRUE(handles.Retain(handle, HandleType::kString, "AddRef"));
    EXPECT_TRUE(handles.Release(handle, HandleType::kString, "Release"));
    EXPECT_TRUE(handles.Release(handle, HandleType::kString, "Release"));
    EXPECT_FALSE(handles.Release(handle, HandleType::kString, "Release"));
    EXPECT_THAT(violations.Lines(), ElementsAre("Release: string#1 has expired"));
}

TEST_F(HandleRegisterTest, OwnedHandlesExpireWithTheirOwner)
{
    auto document = std::make_shared<DocumentObject>();
    void* const owner = handles.Issue(document);
    void* const art = handles.Issue(
        std::make_shared<headless::ArtItem>(headless::ArtItem{document.get(), kTextFrameArt, 0}),
        owner);
    handles.Expire(owner);
    EXPECT_EQ(nullptr, handles.Find<headless::ArtItem>(art, "Op"));
    EXPECT_THAT(violations.Lines(), ElementsAre("Op: art#2 has expired"));
    EXPECT_THAT(handles.ListLeaks(), IsEmpty()) << "art need not be released";
}

TEST_F(HandleRegisterTest, OnlyTheHandlesOfAnOwnerExpireWithIt)
{
    void* const owners[] = {handles.Issue(std::make_shared<DocumentObject>()),
                            handles.Issue(std::make_shared<DocumentObject>())};
    void* const inner = IssueString(owners[0]);
    void* const free = IssueString();
    std::vector<void*> strings;
    for (int i = 0; i < 10; ++i) strings.push_back(IssueString(owners[i % 2]));
    void* const innermost = IssueString(inner);
    handles.Expire(owners[0]);
    for (int i = 0; i < 10; ++i) {
        const bool isLiving = handles.Peek<headless::StringObject>(strings[i]) != nullptr;
        EXPECT_EQ(i % 2 != 0, isLiving) << i;
        EXPECT_EQ(i % 2 != 0, handles.Retain(strings[i], HandleType::kString, "AddRef")) << i;
    }
    EXPECT_TRUE(handles.Retain(free, HandleType::kString, "AddRef"));
    EXPECT_FALSE(handles.Retain(innermost, HandleType::kString, "AddRef")) << "owned by an owned";
    EXPECT_EQ(6U, violations.Count());
}

TEST_F(HandleRegisterTest, AMemoryHandleIsUnmappedWithItsLastReference)
{
    auto* const block = static_cast<char*>(handles.IssueBlock(HandleType::kMemoryHandle, 20));
    block[19] = 'x';
    EXPECT_TRUE(handles.Release(block, HandleType::kMemoryHandle, "MdMemoryDisposeHandle"));
    EXPECT_DEATH({ *static_cast<volatile char*>(block) = 'y'; }, "");
}

TEST_F(HandleRegisterTest, NamesTheSuiteOfAViolation)
{
    const headless::CallName name("AI Font Suite", "GetPostScriptFontName");
    EXPECT_EQ(nullptr, handles.Find<DocumentObject>(nullptr, name));
    EXPECT_THAT(violations.Lines(),
                ElementsAre("AI Font Suite, GetPostScriptFontName: the document is null"));
}

TEST_F(HandleRegisterTest, ListsWhatThePluginHasNotReleased)
{
    (void)IssueString();
    void* const given = IssueString();
    void* const isHostOwned = IssueString();
    (void)handles.IssueBlock(HandleType::kBlock, 10);
    EXPECT_TRUE(handles.Release(given, HandleType::kString, "Destroy"));
    handles.KeepForHost(isHostOwned);
    EXPECT_THAT(handles.ListLeaks(),
                ElementsAre("string#1 was not given back", "block#4 was not given back"));
}

TEST_F(HandleRegisterTest, AHandleThatExpiresBeforeItsReleaseIsALeak)
{
    void* const owner = handles.Issue(std::make_shared<DocumentObject>());
    (void)IssueString(owner);
    handles.Expire(owner);
    EXPECT_THAT(handles.ListLeaks(), ElementsAre("string#2 was not given back"));
}

TEST_F(HandleRegisterTest, OneArtSetPerScanMayRemainUnreleased)
{
    const auto issue = [this] { (void)handles.Issue(std::make_shared<headless::ArtSetObject>()); };
    handles.BeginMessage(true);
    issue();
    handles.BeginMessage(true);
    issue();
    EXPECT_THAT(handles.ListLeaks(), IsEmpty());
    issue();
    handles.BeginMessage(false);
    issue();
    EXPECT_THAT(handles.ListLeaks(),
                ElementsAre("art set#3 was not given back", "art set#4 was not given back"));
}

TEST_F(HandleRegisterTest, ANestedMessageLeavesTheArtSetToTheOuterOne)
{
    const auto issue = [this] { (void)handles.Issue(std::make_shared<headless::ArtSetObject>()); };
    handles.BeginMessage(true);
    const auto outer = handles.BeginMessage(false);
    handles.ResumeMessage(outer);
    issue();
    handles.BeginMessage(true);
    issue();
    EXPECT_THAT(handles.ListLeaks(), IsEmpty());
}

TEST_F(HandleRegisterTest, BlocksAreZeroedAndWritable)
{
    auto* const block = static_cast<char*>(handles.IssueBlock(HandleType::kBlock, 5000));
    EXPECT_EQ(0, block[4999]);
    block[0] = block[4999] = 'x';
    EXPECT_TRUE(handles.Release(block, HandleType::kBlock, "FreeBlock"));
    EXPECT_DEATH({ *static_cast<volatile char*>(block) = 'y'; }, "");
}
