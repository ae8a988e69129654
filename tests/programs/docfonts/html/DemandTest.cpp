#include "docfonts/html/Demand.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "ScratchFolder.h"

namespace {

using docfonts::Demand;
using testing::ElementsAre;

std::vector<std::string> ListDocuments(Demand& demand, const Demand::Thing& thing)
{
    std::vector<std::string> documents;
    demand.ForEachDocument(thing, [&](uint64_t number, std::string_view document) {
        documents.push_back(std::to_string(number) + " " + std::string(document));
    });
    return documents;
}

TEST(Demand, ListsTheDocumentsOfEachThingInOrder)
{
    const ScratchFolder folder;
    Demand demand(folder.Path() + "/");
    demand.Add("Beta", "detail", 1, "a.ai");
    demand.Add("Alpha", "", 2, "b.ai");
    demand.Add("Beta", "other", 3, std::string("c\0.ai", 5));
    const auto things = demand.List();
    ASSERT_EQ(2U, things.size());
    EXPECT_EQ("Alpha", things[0]->name);
    EXPECT_EQ("detail", things[1]->detail);
    EXPECT_THAT(ListDocuments(demand, *things[0]), ElementsAre("2 b.ai"));
    EXPECT_THAT(ListDocuments(demand, *things[1]),
                ElementsAre("1 a.ai", std::string("3 c\0.ai", 7)));
    EXPECT_FALSE(demand.GetError());
}

// The records are partly in memory, partly in the file, and some are cut by the end of the buffer.
TEST(Demand, KeepsMoreThanItsBuffer)
{
    const ScratchFolder folder;
    Demand demand(folder.Path() + "/");
    constexpr int kDocuments = 20'000;
    for (int number = 0; number < kDocuments; ++number) {
        demand.Add(number % 7 == 0 ? "rare" : "often", "", static_cast<uint64_t>(number),
                   std::string(static_cast<size_t>(number % 100), 'x'));
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    for (const Demand::Thing* thing : demand.List()) {
        uint64_t expected = thing->name == "rare" ? 0 : 1;
        uint64_t count = 0;
        demand.ForEachDocument(*thing, [&](uint64_t number, std::string_view document) {
            ASSERT_EQ(expected, number);
            ASSERT_EQ(number % 100, document.size());
            ++count;
            do {
                ++expected;
            } while ((expected % 7 == 0) != (thing->name == "rare"));
        });
        EXPECT_EQ(thing->documents, count);
    }
}

TEST(Demand, HasABound)
{
    const ScratchFolder folder;
    Demand demand(folder.Path() + "/");
    for (size_t thing = 0; thing < Demand::kMostThings + 5; ++thing) {
        demand.Add("font " + std::to_string(thing), "", thing, "a.ai");
    }
    EXPECT_EQ(Demand::kMostThings, demand.List().size());
    EXPECT_EQ(5U, demand.GetOmitted());
    demand.Add("font 0", "", 7, std::string(100'000, 'x'));
    EXPECT_EQ(2U, demand.List()[0]->documents);
    EXPECT_EQ(5U, demand.GetOmitted());
    EXPECT_EQ(2U, ListDocuments(demand, *demand.List()[0]).size());
}

TEST(Demand, KeepsTheFirstError)
{
    const ScratchFolder folder;
    Demand demand(folder.Path("missing/"));
    EXPECT_EQ(std::errc::no_such_file_or_directory, demand.GetError());
    demand.Add("font", "", 1, "a.ai");
    EXPECT_TRUE(ListDocuments(demand, *demand.List()[0]).empty());
}

}  // namespace
