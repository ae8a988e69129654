#include "application/HostPlatformTable.h"

#include "HostFixture.h"
#include "documents/postscript/SlowDrawings.h"

using headless::DocumentObject;

TEST_F(HostFixture, OpenDocumentsAreKnownByTheirPathUntilTheyAreRemoved)
{
    EXPECT_FALSE(HeadlessHostIsDocumentOpen("/a.ai"));
    DocumentObject* const first = host->AddDocument({}, "/a.ai");
    DocumentObject* const second = host->AddDocument({}, "/b.ai");
    EXPECT_TRUE(HeadlessHostIsDocumentOpen("/a.ai"));  // although it isn't the current one
    EXPECT_TRUE(HeadlessHostIsDocumentOpen("/b.ai"));
    EXPECT_FALSE(HeadlessHostIsDocumentOpen("/c.ai"));
    EXPECT_FALSE(HeadlessHostIsDocumentOpen("a.ai"));
    host->RemoveDocument(first);
    EXPECT_FALSE(HeadlessHostIsDocumentOpen("/a.ai"));
    EXPECT_TRUE(HeadlessHostIsDocumentOpen("/b.ai"));
    second->path = "/saved-as.ai";
    EXPECT_FALSE(HeadlessHostIsDocumentOpen("/b.ai"));
    EXPECT_TRUE(HeadlessHostIsDocumentOpen("/saved-as.ai"));
}

TEST_F(HostFixture, OpenDocumentsWithoutAFileAreKnownByTheirName)
{
    (void)host->AddDocument({}, "");
    EXPECT_TRUE(HeadlessHostIsDocumentOpen("Untitled-1"));
    EXPECT_FALSE(HeadlessHostIsDocumentOpen(""));
    documents::Document letterhead;
    letterhead.isTemplate = true;
    (void)host->AddDocument(letterhead, "/letterhead.ait");
    EXPECT_TRUE(HeadlessHostIsDocumentOpen("Untitled-2"));
    EXPECT_FALSE(HeadlessHostIsDocumentOpen("/letterhead.ait"));
}

TEST_F(HostFixture, NoDocumentIsOpenWithoutAPathOrAHost)
{
    (void)host->AddDocument({}, "/a.ai");
    EXPECT_FALSE(HeadlessHostIsDocumentOpen(nullptr));
    host.reset();
    EXPECT_FALSE(HeadlessHostIsDocumentOpen("/a.ai"));
}

TEST_F(HostFixture, SlowDrawingsAreRememberedWithTheLongestTimeUntilTheReset)
{
    headless::ResetHostPlatform();
    EXPECT_EQ(&HeadlessHostGetDrawingSeconds, documents::GetSlowDrawings().getSeconds);
    EXPECT_EQ(&HeadlessHostAddDrawingSeconds, documents::GetSlowDrawings().addSeconds);
    HeadlessHostAddDrawingSeconds("one", 20);
    HeadlessHostAddDrawingSeconds("one", 3);
    HeadlessHostAddDrawingSeconds(nullptr, 3);
    EXPECT_EQ(20, HeadlessHostGetDrawingSeconds("one"));
    EXPECT_EQ(0, HeadlessHostGetDrawingSeconds("another"));
    EXPECT_EQ(0, HeadlessHostGetDrawingSeconds(nullptr));
    headless::ResetHostPlatform();
    EXPECT_EQ(0, HeadlessHostGetDrawingSeconds("one"));
}
