#include "documents/pdf/XmpPacket.h"

#include <gmock/gmock.h>

using namespace documents;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> GetFiles(const std::string& packet)
{
    return ReadXmpPacket(packet).manifestFiles;
}

std::string InManifest(const std::string& text)
{
    return "<rdf:RDF><xmpMM:Manifest><rdf:Bag>" + text + "</rdf:Bag></xmpMM:Manifest></rdf:RDF>";
}

}  // namespace

TEST(XmpPacket, FilesAsElementsInOrderWithRepeats)
{
    EXPECT_THAT(GetFiles(InManifest("<rdf:li><stRef:filePath>/b.eps</stRef:filePath></rdf:li>"
                                    "<rdf:li><stRef:filePath>/a.eps</stRef:filePath></rdf:li>"
                                    "<rdf:li><stRef:filePath>/b.eps</stRef:filePath></rdf:li>")),
                ElementsAre("/b.eps", "/a.eps", "/b.eps"));
}

TEST(XmpPacket, FilesAsAttributes)
{
    EXPECT_THAT(GetFiles(InManifest("<stMfs:reference stRef:filePath=\"/a b.eps\"/>"
                                    "<stMfs:reference\n stRef:x='1' stRef:filePath = '/c.eps' />")),
                ElementsAre("/a b.eps", "/c.eps"));
}

TEST(XmpPacket, EntitiesAreResolved)
{
    EXPECT_THAT(GetFiles(InManifest("<f:filePath>a&amp;b&lt;&gt;&quot;&apos;&#65;&#xE9;&#x1F600;"
                                    "</f:filePath>")),
                ElementsAre("a&b<>\"'A\u00E9\U0001F600"));
}

TEST(XmpPacket, WhatIsNoEntityStays)
{
    EXPECT_THAT(GetFiles(InManifest("<f:filePath>a & b &nope; &#; &#x110000; &</f:filePath>")),
                ElementsAre("a & b &nope; &#; &#x110000; &"));
}

TEST(XmpPacket, OnlyTheManifestCounts)
{
    EXPECT_THAT(GetFiles("<a:Ingredients><b:filePath>x</b:filePath></a:Ingredients>" +
                         InManifest("<b:filePath>y</b:filePath>") + "<b:filePath>z</b:filePath>"),
                ElementsAre("y"));
    EXPECT_THAT(GetFiles("<xmpMM:Manifest/><b:filePath>x</b:filePath>"), IsEmpty());
}

TEST(XmpPacket, CommentsAndInstructionsArePassedOver)
{
    EXPECT_THAT(GetFiles(InManifest("<!-- <b:filePath>x</b:filePath> --><?p <b:filePath> ?>"
                                    "<b:filePath>y</b:filePath>")),
                ElementsAre("y"));
}

TEST(XmpPacket, CreatorTool)
{
    EXPECT_EQ("Drawer & Co",
              ReadXmpPacket("<xmp:CreatorTool> Drawer &amp; Co </xmp:CreatorTool>").creatorTool);
    EXPECT_EQ("Drawer", ReadXmpPacket("<d xap:CreatorTool='Drawer'>").creatorTool);
}

TEST(XmpPacket, CutOffAnywhereIsNoFailure)
{
    const std::string packet =
        InManifest("<a b='1' c=\"2\"/><!-- x --><b:filePath>a&amp;b</b:filePath>");
    for (size_t length = 0; length <= packet.size(); ++length) {
        EXPECT_LE(GetFiles(packet.substr(0, length)).size(), 1u);
    }
    EXPECT_EQ(1u, GetFiles(packet).size());
}
