#include "console/BashCompletion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "SampleCommandLine.h"

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

class BashCompletionTest : public testing::Test {
protected:
    BashCompletionTest()
    {
        std::string pattern = testing::TempDir() + "completion-XXXXXX";
        mFolder = mkdtemp(pattern.data());
        fs::create_directory(mFolder / "drawings");
        std::ofstream(mFolder / "dog 1.ai") << "";
        SampleOptions options;
        std::ofstream(mFolder / "script")
            << console::WriteBashCompletion(*MakeSampleCommandLine(options));
    }
    ~BashCompletionTest() override { fs::remove_all(mFolder); }

    // What bash offers for the last of the words, which follow the name of the program.
    std::vector<std::string> Complete(const std::string& words) const
    {
        const std::string command = "cd '" + mFolder.string() +
                                    "' && bash -c '. ./script; COMP_WORDS=(pen-case " + words +
                                    "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _pen_case; "
                                    "((${#COMPREPLY[@]} == 0)) || "
                                    "printf \"%s\\n\" \"${COMPREPLY[@]}\"' >offers";
        EXPECT_EQ(0, std::system(command.c_str()));
        std::ifstream stream(mFolder / "offers");
        std::vector<std::string> offers;
        for (std::string line; std::getline(stream, line);) offers.push_back(line);
        return offers;
    }

private:
    fs::path mFolder;
};

TEST_F(BashCompletionTest, CommandsAndOptionsOfTheProgram)
{
    EXPECT_THAT(Complete("\"\""), UnorderedElementsAre("draw", "erase", "--help", "--version"));
    EXPECT_THAT(Complete("dr"), ElementsAre("draw"));
}

TEST_F(BashCompletionTest, OptionsOfACommand)
{
    EXPECT_THAT(Complete("draw --i"), UnorderedElementsAre("--into", "--ink"));
    EXPECT_THAT(Complete("draw --f"), IsEmpty());
}

TEST_F(BashCompletionTest, FilesOfACommand)
{
    EXPECT_THAT(Complete("draw d"), UnorderedElementsAre("dog 1.ai", "drawings"));
}

TEST_F(BashCompletionTest, ArgumentsOfAnOption)
{
    EXPECT_THAT(Complete("draw --into d"), ElementsAre("drawings"));
    EXPECT_THAT(Complete("draw --ink d"), IsEmpty());
}

}  // namespace
