#include <cstdlib>

#include "GoldenJournal.h"
#include "SessionFiles.h"
#include "SessionNames.h"

namespace fs = std::filesystem;

class Session : public SessionFiles, public testing::WithParamInterface<const char*> {};

TEST_P(Session, JournalEqualsTheGoldenFile)
{
    const std::string name = GetParam();
    CopySession(name);
    EXPECT_EQ(0, Run("script session --journal journal")) << output << errors;
    const std::string road = MakeGolden(ReadFile(scratch / "journal"), scratch.string());
    const fs::path golden = fs::path(SESSIONS_FOLDER) / "golden" / (name + ".txt");
    if (std::getenv("UPDATE_GOLDEN") != nullptr) WriteFile(golden, road);
    EXPECT_EQ(road, ReadFile(golden));
    if (std::getenv("UPDATE_JOURNALS") != nullptr) {
        WriteFile(scratch / "replay", MakeReplay(ReadFile(scratch / "journal"), scratch.string()));
        const std::string command = "gzip -9nc '" + (scratch / "replay").string() + "' >'" +
                                    SESSIONS_FOLDER "/journals/" + name + ".gz'";
        EXPECT_EQ(0, std::system(command.c_str()));
    }
    EXPECT_THAT(FontFilesInHome(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, Session, testing::ValuesIn(kSessionNames),
                         [](const auto& information) { return GetCaseName(information.param); });
