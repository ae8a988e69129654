#include "documents/pdf/XmpPacket.h"

#include <gmock/gmock.h>

using namespace documents;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<std::string> GetManifestFiles(const std::string& packet)
{
    return ReadXmpPacket(packet).manifestFiles;
}

std::string InManifest(const std::string& text)
{
    return "<rdf:RDF><xmpMM:Manifest><rdf:Bag>" + text + "</rdf:Bag></xmpMM:Manifest></rdf:RDF>";
}

}  // namespace

TEST(XmpPacket, ElementsAreReadInOrderWithRepeats)
{
    EXPECT_THAT(
        GetManifestFiles(InManifest("<rdf:li><stRef:filePath>/b.eps</stRef:filePath></rdf:li>"
                                    "<rdf:li><stRef:filePath>/a.eps</stRef:filePath></rdf:li>"
                                    "<rdf:li><stRef:filePath>/b.eps</stRef:filePath></rdf:li>")),
        ElementsAre("/b.eps", "/a.eps", "/b.eps"));
}

TEST(XmpPacket, AttributesAreRead)
{
    EXPECT_THAT(
        GetManifestFiles(InManifest("<stMfs:reference stRef:filePath=\"/a b.eps\"/>"
                                    "<stMfs:reference\n stRef:x='1' stRef:filePath = '/c.eps' />")),
        ElementsAre("/a b.eps", "/c.eps"));
}

TEST(XmpPacket, EntitiesOfXmlAreResolved)
{
    EXPECT_THAT(
        GetManifestFiles(InManifest("<f:filePath>a&amp;b&lt;&gt;&quot;&apos;&#65;&#xE9;&#x1F600;"
                                    "</f:filePath>")),
        ElementsAre("a&b<>\"'A\u00E9\U0001F600"));
}

TEST(XmpPacket, UnknownEntitiesAreUnchanged)
{
    EXPECT_THAT(
        GetManifestFiles(InManifest("<f:filePath>a & b &nope; &#; &#x110000; &</f:filePath>")),
        ElementsAre("a & b &nope; &#; &#x110000; &"));
}

TEST(XmpPacket, FilesOutsideTheManifestAreIgnored)
{
    EXPECT_THAT(
        GetManifestFiles("<a:Ingredients><b:filePath>x</b:filePath></a:Ingredients>" +
                         InManifest("<b:filePath>y</b:filePath>") + "<b:filePath>z</b:filePath>"),
        ElementsAre("y"));
    EXPECT_THAT(GetManifestFiles("<xmpMM:Manifest/><b:filePath>x</b:filePath>"), IsEmpty());
}

TEST(XmpPacket, CommentsAndInstructionsAreSkipped)
{
    EXPECT_THAT(GetManifestFiles(InManifest("<!-- <b:filePath>x</b:filePath> --><?p <b:filePath> ?>"
                                            "<b:filePath>y</b:filePath>")),
                ElementsAre("y"));
}

TEST(XmpPacket, TextMayHaveCommentsAndSectionsInIt)
{
    EXPECT_THAT(
        GetManifestFiles(InManifest("<b:filePath>a<!-- x -->b<![CDATA[c & d]]></b:filePath>")),
        ElementsAre("abc & d"));
    EXPECT_THAT(GetManifestFiles(InManifest("<b:filePath>a<c/></b:filePath>")), IsEmpty());
}

TEST(XmpPacket, CreatorToolIsAnElementOrAnAttribute)
{
    EXPECT_EQ("Drawer & Co",
              ReadXmpPacket("<xmp:CreatorTool> Drawer &amp; Co </xmp:CreatorTool>").creatorTool);
    EXPECT_EQ("Drawer", ReadXmpPacket("<d xap:CreatorTool='Drawer'>").creatorTool);
}

TEST(XmpPacket, PacketMayBeCutOffAnywhere)
{
    const std::string packet =
        InManifest("<a b='1' c=\"2\"/><!-- x --><b:filePath>a&amp;b</b:filePath>");
    for (size_t length = 0; length <= packet.size(); ++length) {
        EXPECT_LE(GetManifestFiles(packet.substr(0, length)).size(), 1U);
    }
    EXPECT_EQ(1U, GetManifestFiles(packet).size());
}

TEST(XmpPacket, ValueThatThePacketEndsWithinIsIgnored)
{
    const std::string start = "<x:Manifest><b:filePath>/a.eps</b:filePath>";
    EXPECT_THAT(GetManifestFiles(start + "<b:filePath>/b.e"), ElementsAre("/a.eps"));
    EXPECT_THAT(GetManifestFiles(start + "<c b:filePath='/b.e"), ElementsAre("/a.eps"));
    EXPECT_THAT(GetManifestFiles(start + "<b:filePath>/b.eps</b"), ElementsAre("/a.eps", "/b.eps"));
}

TEST(XmpPacket, DamagedPacketIsReadUpToTheDamage)
{
    const std::string first = "<b:filePath>/a.eps</b:filePath>";
    const std::string second = "<b:filePath>/b.eps</b:filePath>";
    for (const char* const damage : {"</c>", "<c d=e/>", "<c d/>", " < ", "<!x>"}) {
        EXPECT_THAT(GetManifestFiles(InManifest(first + damage + second)), ElementsAre("/a.eps"))
            << damage;
    }
}

TEST(XmpPacket, WrongBytesAreReplaced)
{
    EXPECT_THAT(GetManifestFiles(InManifest("<b:filePath>a\xFF\xE9</b:filePath>")),
                ElementsAre("a\uFFFD\uFFFD"));
    EXPECT_THAT(GetManifestFiles(InManifest("<b:filePath>&#xD800;</b:filePath>")),
                ElementsAre("\uFFFD"));
}
