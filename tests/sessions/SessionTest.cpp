#include <chrono>
#include <cstdlib>

#include "EndToEnd.h"
#include "GoldenJournal.h"
#include "SessionNames.h"

namespace fs = std::filesystem;

class Session : public EndToEnd, public testing::WithParamInterface<const char*> {
protected:
    Session()
    {
        // A year ago, so that a save changes the file's time.
        for (const char* name : {"leaflet.eps", "letterhead.ait", "missing-font.pdf"}) {
            fs::last_write_time(scratch / Sample(name),
                                fs::file_time_type::clock::now() - std::chrono::hours(24 * 365));
        }
        WriteFile(scratch / "version8.eps",
                  "%!PS-Adobe-3.0 EPSF-3.0\n%%Creator: Adobe Illustrator(R) 8.0\n"
                  "%%BoundingBox: 0 0 100 100\n%%DocumentFonts: DejaVuSans\n%%EndComments\n"
                  "showpage\n%%EOF\n");
        fs::last_write_time(scratch / "version8.eps",
                            fs::file_time_type::clock::now() - std::chrono::hours(24 * 365));
        fs::create_directory(scratch / "library/First");
    }
};

TEST_P(Session, JournalEqualsTheGoldenFile)
{
    const std::string name = GetParam();
    if (name == "disabled") {
        WriteFile(home / ".config/Corvanta/settings.json", R"({"PluginEnabled":"0"})");
    }
    if (name == "bad-menus") pluginCore = MENUS_OF_FILE_FOLDER;
    if (name == "listener-fails-once") {
        frameworks = fs::path(SCRIPTED_PLUG_PLUG_FOLDER) / "listener-fails-once";
    }
    fs::copy(fs::path(SESSIONS_FOLDER) / (name + ".session"), scratch / "session");
    EXPECT_EQ(0, Run("script session --journal journal")) << output << errors;
    const std::string road = MakeGolden(ReadFile(scratch / "journal"), scratch.string());
    const fs::path golden = fs::path(SESSIONS_FOLDER) / "golden" / (name + ".txt");
    if (std::getenv("UPDATE_GOLDEN") != nullptr) WriteFile(golden, road);
    EXPECT_EQ(road, ReadFile(golden));
    EXPECT_THAT(FontFilesInHome(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(All, Session, testing::ValuesIn(kSessionNames),
                         [](const auto& information) {
                             std::string name = information.param;
                             for (char& c : name) {
                                 if (c == '-') c = '_';
                             }
                             return name;
                         });
