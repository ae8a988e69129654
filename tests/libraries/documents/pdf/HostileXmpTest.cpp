#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

#include "documents/pdf/XmpPacket.h"

using namespace documents;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr size_t kHugeBytes = size_t{100} << 20;
constexpr char kFile[] = "<x:Manifest><x:filePath>/a.eps</x:filePath></x:Manifest>";

// Appends `part` until `start` is at least `bytes` longer.
std::string Fill(std::string start, size_t bytes, std::string_view part)
{
    const size_t size = start.size() + bytes;
    start.reserve(size + part.size());
    while (start.size() < size) start += part;
    return start;
}

std::vector<std::string> GetFilesInFrontOf(std::string_view part, size_t bytes)
{
    return ReadXmpPacket(Fill(std::string("<x:xmpmeta>") + kFile, bytes, part)).manifestFiles;
}

std::string ToUtf16(std::string_view text, bool isBigEndian)
{
    std::string utf16 = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text) {
        if (isBigEndian) utf16 += '\0';
        utf16 += c;
        if (!isBigEndian) utf16 += '\0';
    }
    return utf16;
}

}  // namespace

TEST(HostileXmp, DeepNestingEnds)
{
    for (const char* const part : {"<a>", "<x:Manifest>", "<x:Manifest><x:filePath>"}) {
        EXPECT_THAT(GetFilesInFrontOf(part, size_t{10} << 20), ElementsAre("/a.eps")) << part;
    }
}

TEST(HostileXmp, DeepManifestIsRead)
{
    constexpr size_t kBytes = 3000000;
    const std::string packet = Fill(Fill("", kBytes, "<a>") + kFile, kBytes / 3 * 4, "</a>") +
                               "<x:filePath>b</x:filePath>";
    EXPECT_THAT(ReadXmpPacket(packet).manifestFiles, ElementsAre("/a.eps"));
}

TEST(HostileXmp, ConstructsWithoutEndEnd)
{
    for (const char* const part :
         {"<![CDATA[", "<!--", "<?p ", "<!DOCTYPE a [", "<![", "<a b='", "<a b='1' ", "</", "&#"}) {
        EXPECT_THAT(GetFilesInFrontOf(part, size_t{10} << 20), ElementsAre("/a.eps")) << part;
    }
}

TEST(HostileXmp, HugePacketsEnd)
{
    for (const char* const part : {"<a/>", "<a>b", " ", "&amp;"}) {
        EXPECT_THAT(GetFilesInFrontOf(part, kHugeBytes), ElementsAre("/a.eps")) << part;
    }
}

TEST(HostileXmp, TreeOfAHugePacketIsLimited)
{
    const std::string elements = Fill("<x:xmpmeta>", kHugeBytes, "<a/>");
    EXPECT_THAT(ReadXmpPacket(elements + kFile).manifestFiles, IsEmpty());
    const std::string padding = Fill("<x:xmpmeta>", kHugeBytes, " ");
    EXPECT_THAT(ReadXmpPacket(padding + kFile).manifestFiles, ElementsAre("/a.eps"));
}

TEST(HostileXmp, EntitiesOfADocumentTypeAreNotExpanded)
{
    const std::string laughs =
        "<!DOCTYPE a [<!ENTITY a 'ha'><!ENTITY b '&a;&a;&a;'>"
        "<!ENTITY c SYSTEM '/etc/hostname'>]>";
    EXPECT_THAT(ReadXmpPacket(laughs + "<x:Manifest><x:filePath>&b;&c;</x:filePath></x:Manifest>")
                    .manifestFiles,
                ElementsAre("&b;&c;"));
}

TEST(HostileXmp, ZeroBytesAreSpaces)
{
    constexpr char kPacket[] = "<x:Manifest\0a='1'>\0<x:filePath>\0/a\0b\0</x:filePath>";
    EXPECT_THAT(ReadXmpPacket({kPacket, sizeof kPacket - 1}).manifestFiles, ElementsAre("/a b"));
    EXPECT_THAT(ReadXmpPacket(std::string(100, '\0') + kFile).manifestFiles, ElementsAre("/a.eps"));
    EXPECT_THAT(ReadXmpPacket(std::string(100, '\0')).manifestFiles, IsEmpty());
}

TEST(HostileXmp, Utf16IsIgnored)
{
    for (const bool isBigEndian : {true, false}) {
        const std::string packet = ToUtf16(kFile, isBigEndian);
        EXPECT_THAT(ReadXmpPacket(packet).manifestFiles, IsEmpty());
        EXPECT_THAT(ReadXmpPacket(packet.substr(2)).manifestFiles, IsEmpty());
        EXPECT_THAT(ReadXmpPacket(packet.substr(1)).manifestFiles, IsEmpty());
    }
}

TEST(HostileXmp, AnyBytesEnd)
{
    constexpr std::string_view kBytes("<>/!?-[]=&;#'\"x: \0\xFF", 19);
    unsigned state = 1;
    for (int round = 0; round < 2000; ++round) {
        std::string packet = "<x:Manifest>";
        for (int i = 0; i < 100; ++i) {
            state = state * 1103515245U + 12345U;
            packet += kBytes[(state >> 16) % kBytes.size()];
        }
        EXPECT_THAT(ReadXmpPacket(packet).manifestFiles, IsEmpty()) << packet;
    }
}
