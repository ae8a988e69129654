#include "fonts/FontFaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>

#include "FontTestHome.h"
#include "fonts/FaceNames.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> GetNames(const fonts::FontFaces& content)
{
    std::vector<std::string> names;
    for (const fonts::FontFace& face : content.faces) names.push_back(face.postScriptName);
    return names;
}

enum Outcome { kRead, kLacksMemory, kWrong };

// Takes all memory that this process can have, and then allows it so much more.
void LeaveMemory(size_t bytes)
{
    std::ifstream sizes("/proc/self/statm");
    size_t pages = 0;
    sizes >> pages;
    const size_t most = pages * static_cast<size_t>(sysconf(_SC_PAGESIZE));
    rlimit limit = {most, most + bytes};
    if (setrlimit(RLIMIT_AS, &limit) != 0) _exit(kWrong);
    void* volatile taken = nullptr;  // volatile: compilers may leave out what isn't used
    for (const size_t block : {size_t{1000}, size_t{16}}) {
        do {
            taken = std::malloc(block);
        } while (taken != nullptr);
    }
    limit.rlim_cur = limit.rlim_max;
    if (setrlimit(RLIMIT_AS, &limit) != 0) _exit(kWrong);
}

Outcome ReadWithin(const std::filesystem::path& file, const std::string& name, size_t bytes)
{
    const std::string path = file;
    const pid_t child = fork();
    if (child == 0) {
        LeaveMemory(bytes);
        const fonts::FontFaces content = fonts::ReadFontFaces(path);
        if (content.lacksMemory) _exit(content.problem == "out of memory" ? kLacksMemory : kWrong);
        _exit(content.faces.size() == 1 && content.faces[0].postScriptName == name ? kRead
                                                                                   : kWrong);
    }
    int status = -1;
    if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return kWrong;
    return static_cast<Outcome>(WEXITSTATUS(status));
}

TEST(FontFaces, ReadsTheNameOfAPlainFile)
{
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSans-Bold", home.GetLibrary());
    const fonts::FontFaces content = fonts::ReadFontFaces(file);
    EXPECT_THAT(GetNames(content), ElementsAre("DejaVuSans-Bold"));
    EXPECT_THAT(content.problem, IsEmpty());
    EXPECT_FALSE(content.faces.at(0).isType1);
}

TEST(FontFaces, ReadsAllMembersOfACollection)
{
    const FontTestHome home;
    const auto first = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    const auto second = FontTestHome::CopyFont("DejaVuSerif", home.GetLibrary());
    const auto file = home.GetLibrary() / "both.ttc";
    FontTestHome::WriteFile(file, MakeCollection(first, second));
    const fonts::FontFaces content = fonts::ReadFontFaces(file);
    ASSERT_THAT(GetNames(content), ElementsAre("DejaVuSans", "DejaVuSerif"));
    EXPECT_EQ(1, content.faces[1].index);
}

TEST(FontFaces, ReadsTheNamedInstancesOfAVariableFont)
{
    const FontTestHome home;
    const auto plain = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    const auto file = home.GetLibrary() / "variable.ttf";
    FontTestHome::WriteFile(file, MakeVariableFont(plain, {"Heavy"}));
    const fonts::FontFaces content = fonts::ReadFontFaces(file);
    ASSERT_THAT(GetNames(content), ElementsAre("DejaVuSansMono", "DejaVuSansMono-Heavy"));
    EXPECT_EQ(1 << 16, content.faces[1].index);
}

// What ReadFaceNames says of a face that it opens by its index.
void ExpectNamesForPeople(const std::string& file, const fonts::FontFaces& content)
{
    for (const fonts::FontFace& face : content.faces) {
        const fonts::FaceNames names = fonts::ReadFaceNames(file, face.index);
        EXPECT_NE("", names.family) << face.postScriptName;
        EXPECT_EQ(names.family, face.family) << face.postScriptName;
        EXPECT_EQ(names.style, face.style) << face.postScriptName;
    }
}

TEST(FontFaces, ReadsWhatPeopleCallAFaceInTheSamePass)
{
    const FontTestHome home;
    const auto bold = FontTestHome::CopyFont("DejaVuSans-BoldOblique", home.GetLibrary());
    const auto mono = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    const auto both = home.GetLibrary() / "both.ttc";
    const auto variable = home.GetLibrary() / "variable.ttf";
    FontTestHome::WriteFile(both, MakeCollection(bold, mono));
    FontTestHome::WriteFile(variable, MakeVariableFont(mono, {"Heavy", "Very Heavy"}));
    for (const std::string file : {bold, mono, both, variable}) {
        const fonts::FontFaces content = fonts::ReadFontFaces(file);
        EXPECT_FALSE(content.faces.empty());
        ExpectNamesForPeople(file, content);
    }
    EXPECT_EQ("DejaVu Sans", fonts::ReadFontFaces(both).faces.at(0).family);
    EXPECT_EQ("Bold Oblique", fonts::ReadFontFaces(both).faces.at(0).style);
}

TEST(FontFaces, ReadsWeightAndFormat)
{
    const FontTestHome home;
    const auto list = [](const std::string& file) {
        std::vector<std::string> found;
        for (const fonts::FontFace& face : fonts::ReadFontFaces(file).faces) {
            found.push_back(std::to_string(face.weight) + " " + face.format);
        }
        return found;
    };
    const auto mono = FontTestHome::CopyFont("DejaVuSansMono", home.GetLibrary());
    const auto variable = home.GetLibrary() / "variable.ttf";
    FontTestHome::WriteFile(variable, MakeVariableFont(mono, {"Semi", "Bold"}));
    EXPECT_THAT(list(mono), ElementsAre("400 TrueType"));
    EXPECT_THAT(list("/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf"),
                ElementsAre("700 TrueType"));
    EXPECT_THAT(list(variable), ElementsAre("400 TrueType", "500 TrueType", "600 TrueType"));
}

TEST(FontFaces, ReportsWhyAFileIsUnusable)
{
    const FontTestHome home;
    FontTestHome::WriteFile(home.GetLibrary() / "empty.ttf", "");
    FontTestHome::WriteFile(home.GetLibrary() / "text.otf", std::string(5000, 'x'));
    for (const char* name : {"empty.ttf", "text.otf", "missing.ttf", ""}) {
        const fonts::FontFaces content = fonts::ReadFontFaces(home.GetLibrary() / name);
        EXPECT_THAT(content.faces, IsEmpty()) << name;
        EXPECT_FALSE(content.problem.empty()) << name;
    }
}

TEST(FontFaces, LackOfMemoryIsNotTakenForDamage)
{
    if (IS_SANITIZED) GTEST_SKIP() << "a sanitizer needs more memory than the limit";
    const FontTestHome home;
    const auto file = FontTestHome::CopyFont("DejaVuSans", home.GetLibrary());
    size_t refused = 0;
    size_t read = 0;
    for (size_t kibibytes = 0; kibibytes < 3000; kibibytes += 20) {
        const Outcome outcome = ReadWithin(file, "DejaVuSans", kibibytes << 10);
        EXPECT_NE(kWrong, outcome) << kibibytes;
        ++(outcome == kRead ? read : refused);
    }
    EXPECT_LT(0U, refused);
    EXPECT_LT(0U, read);
}

TEST(FontFaces, ReadsFilesThatAreCutAnywhere)
{
    const FontTestHome home;
    const auto first = FontTestHome::CopyFont("DejaVuSansMono-Bold", home.GetLibrary());
    const std::string whole = MakeCollection(first, first);
    const auto file = home.GetLibrary() / "cut.ttc";
    for (size_t size = 0; size < whole.size(); size += whole.size() / 40) {
        FontTestHome::WriteFile(file, whole.substr(0, size));
        const fonts::FontFaces content = fonts::ReadFontFaces(file);
        EXPECT_EQ(content.faces.empty(), !content.problem.empty()) << size;
    }
}

TEST(FontFaces, ManyFilesAreReadAsEachAlone)
{
    const FontTestHome home;
    const std::string small = "not a font";
    std::vector<std::string> paths;
    for (int number = 0; number < 40; ++number) {
        for (const char* const name : {"DejaVuSans", "DejaVuSerif-Bold"}) {
            paths.push_back("/usr/share/fonts/truetype/dejavu/" + std::string(name) + ".ttf");
        }
        const auto file = home.GetLibrary() / (std::to_string(number) + ".ttf");
        FontTestHome::WriteFile(file, small.substr(0, static_cast<size_t>(number) % 11));
        paths.push_back(file);
        paths.push_back(home.GetLibrary() / "missing.ttf");
    }
    const std::vector<fonts::FontFaces> together = fonts::ReadFontFacesOfFiles(paths);
    ASSERT_EQ(paths.size(), together.size());
    for (size_t file = 0; file < paths.size(); ++file) {
        const fonts::FontFaces alone = fonts::ReadFontFaces(paths[file]);
        EXPECT_EQ(alone.problem, together[file].problem) << paths[file];
        ASSERT_EQ(alone.faces.size(), together[file].faces.size()) << paths[file];
        for (size_t face = 0; face < alone.faces.size(); ++face) {
            EXPECT_EQ(alone.faces[face].postScriptName, together[file].faces[face].postScriptName);
        }
    }
    EXPECT_THAT(fonts::ReadFontFacesOfFiles({}), IsEmpty());
}

}  // namespace
