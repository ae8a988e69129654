#include "documents/write/WriteXmp.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "documents/pdf/XmpPacket.h"

using namespace documents;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

const std::vector<std::string> kFiles = {"/a & b.eps", "<c>.tif", "\u00E9 \"d\" 'e'", "/a & b.eps"};

std::vector<std::string> ReadFiles(const std::string& packet)
{
    return ReadXmpPacket(packet).manifestFiles;
}

std::string InRdf(const std::string& text)
{
    return "<x:xmpmeta><r:RDF>" + text + "</r:RDF></x:xmpmeta>";
}

std::string RemoveManifest(const std::string& packet) { return ReplaceManifest(packet, {}); }

}  // namespace

TEST(WriteXmp, NewPacketIsReadBack)
{
    const std::string packet = MakeXmpPacket("Drawer <8> & Co", kFiles);
    EXPECT_EQ("Drawer <8> & Co", ReadXmpPacket(packet).creatorTool);
    EXPECT_THAT(ReadFiles(packet), ElementsAreArray(kFiles));
}

TEST(WriteXmp, NewPacketHasTheMarksOfAPacket)
{
    const std::string packet = MakeXmpPacket("Drawer", {});
    EXPECT_EQ(0U, packet.find("<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
                              "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">"));
    EXPECT_THAT(packet, testing::EndsWith("</x:xmpmeta>\n<?xpacket end=\"w\"?>\n"));
    EXPECT_THAT(packet, Not(HasSubstr("Manifest")));
}

TEST(WriteXmp, WrongBytesAreReplaced)
{
    EXPECT_THAT(ReadFiles(MakeXmpPacket("", {"a\xFF"})), ElementsAre("a\uFFFD"));
}

TEST(WriteXmp, ManifestIsReplaced)
{
    const std::string packet = ReplaceManifest(MakeXmpPacket("Drawer", {"/old.eps"}), kFiles);
    EXPECT_THAT(ReadFiles(packet), ElementsAreArray(kFiles));
    EXPECT_EQ("Drawer", ReadXmpPacket(packet).creatorTool);
}

TEST(WriteXmp, ManifestIsAddedUnderThePacketsOwnPrefix)
{
    const std::string packet = ReplaceManifest(InRdf("<r:Description/>"), {"/a.eps"});
    EXPECT_THAT(ReadFiles(packet), ElementsAre("/a.eps"));
    EXPECT_THAT(packet, HasSubstr("<r:Description r:about=\"\""));
    EXPECT_THAT(packet, HasSubstr("</r:Description></r:RDF></x:xmpmeta>"));
}

TEST(WriteXmp, EveryManifestIsRemoved)
{
    const std::string manifest =
        "<m:Manifest><r:Bag><f:filePath>a</f:filePath></r:Bag></m:Manifest>";
    EXPECT_EQ(
        InRdf("<a>b</a><c>d</c>"),
        RemoveManifest(InRdf("<a>b" + manifest + "</a><m:Manifest/><c>" + manifest + "d</c>")));
    EXPECT_EQ(InRdf("x"), RemoveManifest(InRdf("x<m:Manifest>" + manifest + "</m:Manifest>")));
}

TEST(WriteXmp, EverythingElseRemains)
{
    const std::string packet =
        "<?xpacket begin=\"\"?>\n" +
        InRdf("\n <a b=\"1 &amp; 2\">x &lt; y</a>\n <!-- c --> <![CDATA[<d>]]>\n\t<e/>") +
        "\n        \n<?xpacket end=\"w\"?>\n";
    EXPECT_EQ(packet, RemoveManifest(packet));
}

TEST(WriteXmp, PacketCutOffIsKeptAsFarAsItGoes)
{
    const std::string packet =
        ReplaceManifest("<x:xmpmeta><r:RDF><x:CreatorTool>Drawer</x:CreatorTool><a>b", {"/a.eps"});
    EXPECT_EQ("Drawer", ReadXmpPacket(packet).creatorTool);
    EXPECT_THAT(ReadFiles(packet), ElementsAre("/a.eps"));
    EXPECT_THAT(packet, testing::EndsWith("</r:RDF></x:xmpmeta>"));
}

TEST(WriteXmp, PacketWithoutRdfIsNotChanged)
{
    for (const char* const packet :
         {"", "no XML", "<a/>", "<RDF></RDF>", "<m:Manifest><r:RDF/></m:Manifest>",
          "<!DOCTYPE a [<!ENTITY b 'c'>]><r:RDF>&b;</r:RDF>"}) {
        EXPECT_EQ("", ReplaceManifest(packet, {"/a.eps"})) << packet;
    }
}

TEST(WriteXmp, DeepManifestIsRemoved)
{
    constexpr int kDepth = 500000;
    std::string deep;
    for (int i = 0; i < kDepth; ++i) deep += "<a>";
    for (int i = 0; i < kDepth; ++i) deep += "</a>";
    EXPECT_EQ(InRdf("b"), RemoveManifest(InRdf("<m:Manifest>" + deep + "</m:Manifest>b")));
    EXPECT_THAT(ReadFiles(ReplaceManifest(InRdf(deep), {"/a.eps"})), ElementsAre("/a.eps"));
}
