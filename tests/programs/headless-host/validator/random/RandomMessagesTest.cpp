#include "validator/random/RandomMessages.h"

#include <gmock/gmock.h>

#include <map>

#include "ScriptReferee.h"
#include "session/SessionWords.h"

using headless::MakeRandomScript;
using headless::SplitSessionLine;
using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

using Lines = std::vector<std::string>;

constexpr size_t kMostDocuments = 8;

uint64_t Hash(const Lines& lines)
{
    uint64_t hash = 14695981039346656037U;  // FNV-1a
    for (const std::string& line : lines) {
        for (const char c : line + "\n") {
            hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
        }
    }
    return hash;
}

std::map<std::string, size_t> CountActions(const Lines& lines)
{
    std::map<std::string, size_t> counts;
    for (const std::string& line : lines) ++counts[SplitSessionLine(line).words.at(0)];
    return counts;
}

bool IsMessage(const std::string& line) { return line.rfind("send ", 0) == 0; }

}  // namespace

// If a change of the generator is intended, replace the hashes.
TEST(RandomMessagesTest, TheSameSeedGivesTheSameScriptOnEveryPlatform)
{
    EXPECT_EQ(8390885485756542292U, Hash(MakeRandomScript(12, 5000, true, true)));
    EXPECT_EQ(1607449084840357802U, Hash(MakeRandomScript(12, 5000, true, false)));
    EXPECT_EQ(2950013259231505724U, Hash(MakeRandomScript(12, 5000, false, true)));
    EXPECT_NE(MakeRandomScript(1, 100, true, true), MakeRandomScript(2, 100, true, true));
}

TEST(RandomMessagesTest, AShorterScriptIsTheStartOfALongerOne)
{
    const Lines longer = MakeRandomScript(3, 300, true, true);
    for (const size_t count : {0, 1, 7, 299}) {
        const Lines shorter = MakeRandomScript(3, count, true, true);
        EXPECT_EQ(longer.size() - 300 + count, shorter.size());
        EXPECT_EQ(Lines(longer.begin(), longer.begin() + static_cast<long>(shorter.size())),
                  shorter);
    }
}

TEST(RandomMessagesTest, AScriptStartsWithTheFilesThatItOpens)
{
    EXPECT_THAT(MakeRandomScript(4, 0, true, true),
                testing::AllOf(testing::SizeIs(8), Each(StartsWith("document ")),
                               Contains(HasSubstr(".ait")), Contains(HasSubstr(".eps")),
                               Contains(HasSubstr(".pdf")), Contains(HasSubstr("unreadable"))));
}

TEST(RandomMessagesTest, AHostAcceptsEveryLineHoweverThePlugInBehaves)
{
    for (unsigned long seed = 1; seed <= 100; ++seed) {
        const bool isTypeloft = seed % 4 != 0;
        const Lines lines = MakeRandomScript(seed, 300, seed % 5 != 0, isTypeloft);
        for (const unsigned kind : {0U, 1U, 2U, 3U}) {
            ScriptReferee referee((kind & 1U) != 0, (kind & 2U) != 0);
            for (size_t i = 0; i < lines.size(); ++i) {
                ASSERT_EQ("", referee.Play(lines[i]))
                    << "seed " << seed << ", line " << i << ": " << lines[i];
                ASSERT_LE(referee.CountDocuments(), kMostDocuments) << "seed " << seed;
            }
        }
    }
}

TEST(RandomMessagesTest, TheRefereeOfTheseTestsRefusesWhatAHostRefuses)
{
    const std::vector<std::pair<std::string, Lines>> refused = {
        {"no document is open", {"close"}},
        {"no document has the number 2", {"new", "close 2"}},
        {"no document is called a.ai", {"new", "current a.ai"}},
        {"more than one document is called a.ai",
         {"document a.ai", "open a.ai", "open a.ai", "close a.ai"}},
        {"has no file yet", {"document t.ait", "open t.ait", "save"}},
        {"no such file", {"document a.ai", "vanish a.ai", "vanish a.ai"}},
        {"no such item", {"menu Select Library"}},
        {"may be gone", {"core IdleEvent rebuild", "fail-core 3 1", "menu Select Library/One"}},
        {"the start may fail", {"fail-call 5 1", "show menu", "restart"}},
        {"unknown action opn", {"opn a.ai"}},
    };
    for (const auto& [error, lines] : refused) {
        ScriptReferee referee(true, true);
        for (size_t i = 0; i + 1 < lines.size(); ++i) EXPECT_EQ("", referee.Play(lines[i]));
        EXPECT_EQ(error, referee.Play(lines.back()));
    }
}

TEST(RandomMessagesTest, EveryKindOfLineOccurs)
{
    const auto counts = CountActions(MakeRandomScript(5, 10000, true, true));
    for (const char* const action :
         {"open",    "new",    "text",      "place",     "change", "save",
          "current", "close",  "show",      "menu",      "tick",   "fonts-changed",
          "about",   "active", "clock",     "document",  "vanish", "during",
          "core",    "fail",   "fail-call", "fail-core", "restart"}) {
        EXPECT_THAT(counts, Contains(testing::Pair(action, testing::Ge(10U)))) << action;
    }
    EXPECT_EQ(0U, counts.count("send"));
    EXPECT_LE(6000U, CountActions(MakeRandomScript(5, 10000, false, true))["send"]);
}

TEST(RandomMessagesTest, EveryMenuItemAndNestedOpeningOccurs)
{
    const Lines lines = MakeRandomScript(6, 10000, true, true);
    for (const char* const line :
         {"menu Activate Fonts", "menu Deactivate Fonts", "menu About",
          "menu \"Select Library/One\"", "menu \"Select Library/Two\"", "show menu", "save"}) {
        EXPECT_THAT(lines, Contains(line));
    }
    for (const char* const start :
         {"during HandleOpenExistingDocument open ", "during InvokeResolveDialog open ",
          "during IdleEvent open ", "during AcquireSuite ", "save saved-", "core GetMenus text=",
          "core GetMenus hex=", "core PluginIsEnabled flag=false", "core IdleEvent rebuild"}) {
        EXPECT_THAT(lines, Contains(StartsWith(start)));
    }
}

TEST(RandomMessagesTest, AnotherPlugInGetsNothingThatNeedsPluginCore)
{
    for (const bool keepsModel : {true, false}) {
        for (const std::string& line : MakeRandomScript(7, 10000, keepsModel, false)) {
            const headless::Words words = SplitSessionLine(line).words;
            for (const char* const action : {"core", "menu", "fail", "fail-call", "fail-core"}) {
                EXPECT_NE(action, words[0]) << line;
            }
            EXPECT_THAT(line, testing::Not(HasSubstr("during Handle")));
        }
    }
}

TEST(RandomMessagesTest, MessagesWithoutAModelNeverEndThePlugIn)
{
    size_t unknown = 0;
    size_t empty = 0;
    size_t longWords = 0;
    for (const std::string& line : MakeRandomScript(8, 50000, false, true)) {
        if (!IsMessage(line)) continue;
        const headless::Words words = SplitSessionLine(line).words;
        EXPECT_FALSE(words[1] == "SP Interface" && words[2] == "Shutdown");
        EXPECT_FALSE(words[1] == "SP Access" && words[2] == "Unload");
        for (const std::string& word : words) {
            EXPECT_NE("notifier=7", word);  // the one for the end of the host
            if (word == "item=unknown") ++unknown;
            if (word.empty()) ++empty;
            if (word.size() > 1000) ++longWords;
        }
    }
    EXPECT_LE(100U, unknown);
    EXPECT_LE(100U, empty);
    EXPECT_LE(100U, longWords);
}
