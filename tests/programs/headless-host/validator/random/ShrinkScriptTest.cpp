#include "validator/random/ShrinkScript.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "validator/random/RandomNumbers.h"

using headless::RandomNumbers;
using headless::ShrinkScript;
using testing::ElementsAre;

namespace {

using Lines = std::vector<std::string>;

constexpr size_t kManyRuns = 1000000;

Lines Number(size_t count)
{
    Lines lines;
    for (size_t i = 0; i < count; ++i) lines.push_back(std::to_string(i));
    return lines;
}

bool HasLine(const Lines& lines, const std::string& line)
{
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

bool IsInOrder(const Lines& lines)
{
    return std::is_sorted(lines.begin(), lines.end(), [](const auto& a, const auto& b) {
        return std::stoul(a) < std::stoul(b);
    });
}

Lines LeaveOut(Lines lines, size_t index)
{
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(index));
    return lines;
}

}  // namespace

TEST(ShrinkScriptTest, OnlyTheLinesThatAFailureNeedsRemain)
{
    const auto fails = [](const Lines& lines) {
        return HasLine(lines, "3") && HasLine(lines, "400") && HasLine(lines, "999");
    };
    EXPECT_THAT(ShrinkScript(Number(1000), kManyRuns, fails), ElementsAre("3", "400", "999"));
}

TEST(ShrinkScriptTest, AFailureThatNeedsNothingLeavesNothing)
{
    EXPECT_THAT(ShrinkScript(Number(10), kManyRuns, [](const Lines&) { return true; }),
                testing::IsEmpty());
    EXPECT_THAT(ShrinkScript({}, kManyRuns, [](const Lines&) { return true; }), testing::IsEmpty());
}

TEST(ShrinkScriptTest, AFailureThatNeedsEveryLineKeepsThemAll)
{
    const auto fails = [](const Lines& lines) { return lines.size() == 37; };
    EXPECT_EQ(Number(37), ShrinkScript(Number(37), kManyRuns, fails));
}

TEST(ShrinkScriptTest, ALineThatBecomesSuperfluousLaterIsLeftOut)
{
    // Line n is needed while line n + 1 is there.
    const auto fails = [](const Lines& lines) {
        for (const std::string& line : lines) {
            const std::string before = std::to_string(std::stoul(line) - 1);
            if (line != "0" && !HasLine(lines, before)) return false;
        }
        return HasLine(lines, "0");
    };
    EXPECT_THAT(ShrinkScript(Number(64), kManyRuns, fails), ElementsAre("0"));
    const auto failsBackwards = [](const Lines& lines) {
        for (const std::string& line : lines) {
            const std::string after = std::to_string(std::stoul(line) + 1);
            if (line != "63" && !HasLine(lines, after)) return false;
        }
        return HasLine(lines, "63");
    };
    EXPECT_THAT(ShrinkScript(Number(64), kManyRuns, failsBackwards), ElementsAre("63"));
}

TEST(ShrinkScriptTest, TheResultFailsIsInOrderAndCannotBeShortened)
{
    RandomNumbers random(21);
    for (int round = 0; round < 300; ++round) {
        const size_t count = random.Between(1, 60);
        // Fails if one of several groups of lines is there and no line of another kind is in the
        // way, so leaving out more lines can end the failure and begin it again.
        std::vector<Lines> groups(random.Between(1, 4));
        for (Lines& group : groups) {
            for (uint64_t i = random.Below(5); i > 0; --i) {
                group.push_back(std::to_string(random.Below(count)));
            }
        }
        const size_t modulus = random.Between(2, 9);
        const auto fails = [&](const Lines& lines) {
            const bool isWhole = std::any_of(groups.begin(), groups.end(), [&](const Lines& group) {
                return std::all_of(group.begin(), group.end(),
                                   [&](const std::string& line) { return HasLine(lines, line); });
            });
            return lines.size() == count || (isWhole && lines.size() % modulus != 1);
        };
        size_t runs = 0;
        const auto counted = [&](const Lines& lines) {
            ++runs;
            return fails(lines);
        };
        const Lines result = ShrinkScript(Number(count), kManyRuns, counted);
        EXPECT_TRUE(fails(result));
        EXPECT_TRUE(IsInOrder(result));
        for (size_t i = 0; i < result.size(); ++i) EXPECT_FALSE(fails(LeaveOut(result, i)));
        EXPECT_LE(runs, count * count + 2 * count);
        EXPECT_EQ(result, ShrinkScript(Number(count), kManyRuns, fails));
    }
}

TEST(ShrinkScriptTest, TheNumberOfRunsIsLimited)
{
    for (const size_t most : {0, 1, 2, 10, 50}) {
        size_t runs = 0;
        const auto fails = [&](const Lines& lines) {
            ++runs;
            return HasLine(lines, "17") && HasLine(lines, "80");
        };
        const Lines result = ShrinkScript(Number(100), most, fails);
        EXPECT_LE(runs, most);
        EXPECT_TRUE(HasLine(result, "17") && HasLine(result, "80") && IsInOrder(result));
    }
}

TEST(ShrinkScriptTest, ALongScriptWithFewNeededLinesTakesFewRuns)
{
    size_t runs = 0;
    const auto fails = [&](const Lines& lines) {
        ++runs;
        return HasLine(lines, "5000") && HasLine(lines, "9000");
    };
    EXPECT_THAT(ShrinkScript(Number(10000), kManyRuns, fails), ElementsAre("5000", "9000"));
    EXPECT_LE(runs, 100U);
}
