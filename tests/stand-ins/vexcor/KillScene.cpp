#include "KillScene.h"

#include <signal.h>

#include <algorithm>

namespace fs = std::filesystem;
using plugincore::ActivationFolder;
using plugincore::Statement;

namespace {

constexpr std::array<const char*, 4> kFonts = {"DejaVuSans", "DejaVuSans-Bold", "DejaVuSerif",
                                               "DejaVuSerif-Bold"};
constexpr int kDocuments = 6;

std::string GetDocument(int number) { return "d" + std::to_string(number) + ".eps"; }

// Three of the fonts, others for each document.
std::string MakeDocument(int number)
{
    std::string text = "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n%%DocumentFonts:";
    for (int font = 0; font < 3; ++font)
        text += std::string(" ") + kFonts[static_cast<size_t>(number + font) % kFonts.size()];
    return text + "\n%%EndComments\nshowpage\n%%EOF\n";
}

std::vector<std::string> GetTexts(plugincore::Database& database, const std::string& sql)
{
    Statement statement(database, sql);
    std::vector<std::string> texts;
    while (statement.Step()) texts.push_back(statement.GetText(0));
    return texts;
}

}  // namespace

int KillScene::Random(int first, int last)
{
    return std::uniform_int_distribution<int>(first, last)(mRandom);
}

void KillScene::Begin(unsigned seed)
{
    mRandom.seed(seed);
    for (const char* const font : kFonts) FontTestHome::CopyFont(font, home.GetLibrary());
    for (int number = 0; number < kDocuments; ++number)
        FontTestHome::WriteFile(home.GetPath() / GetDocument(number), MakeDocument(number));
    ASSERT_EQ(Run({"install"}), 0) << output;
    (void)OpenWorkspace();  // this process looks at the tables and changes nothing
}

std::unique_ptr<ChildProcess> KillScene::StartHost(size_t number)
{
    std::string session;
    std::vector<int> open;
    for (int line = 0; line < 2000; ++line) {
        const bool opens = open.empty() || (open.size() < 3 && Random(0, 1) == 0);
        const int document = Random(0, kDocuments - 1);
        const auto place = std::find(open.begin(), open.end(), document);
        if (opens && place == open.end()) {
            session += "open '" + (home.GetPath() / GetDocument(document)).string() + "'\n";
            open.push_back(document);
        } else if (!opens) {
            session += "close " + GetDocument(open.front()) + "\n";
            open.erase(open.begin());
        }
    }
    const std::string name = "host-" + std::to_string(number);
    FontTestHome::WriteFile(home.GetPath() / name, session);
    return std::make_unique<ChildProcess>(
        std::vector<std::string>{HEADLESS_HOST_PROGRAM, "run", home.GetPath() / name, "--plugin",
                                 PLUG_IN_FOLDER, "--frameworks", PRIVATE_FRAMEWORKS_FOLDER},
        home.GetPath() / (name + "-output"));
}

void KillScene::StartAll()
{
    if (!mKeeper) mKeeper = StartKeeper();
    EXPECT_FALSE(mKeeper->HasEnded()) << mKeeper->GetOutput();
    for (size_t number = 0; number < kHosts; ++number) {
        if (mHosts[number] && mHosts[number]->HasEnded()) {
            EXPECT_EQ(mHosts[number]->Wait(), 0) << mHosts[number]->GetOutput();
            mHosts[number].reset();
        }
        if (!mHosts[number]) mHosts[number] = StartHost(number);
    }
}

std::string KillScene::KillOne()
{
    const int victim = Random(0, static_cast<int>(kHosts));
    std::unique_ptr<ChildProcess>& process =
        victim == 0 ? mKeeper : mHosts[static_cast<size_t>(victim) - 1];
    process->Send(SIGKILL);
    EXPECT_THAT(process->Wait(), testing::AnyOf(-SIGKILL, 0)) << process->GetOutput();
    process.reset();
    return victim == 0 ? "Vexcor" : "host " + std::to_string(victim);
}

void KillScene::EndAll()
{
    for (auto& host : mHosts) {
        if (!host) continue;
        host->Send(SIGTERM);
        EXPECT_THAT(host->Wait(), testing::AnyOf(130, 0)) << host->GetOutput();
        host.reset();
    }
    if (!mKeeper) return;
    mKeeper->Send(SIGTERM);
    EXPECT_EQ(mKeeper->Wait(), 0) << mKeeper->GetOutput();
    mKeeper.reset();
}

std::string KillScene::FindDisagreement()
{
    plugincore::Database& database = OpenWorkspace().database;
    const plugincore::Transaction nobodyChanges(database);
    EXPECT_EQ(database.FindDamage(), "");
    EXPECT_TRUE(GetTexts(database, "PRAGMA foreign_key_check").empty());
    for (const auto look :
         {&KillScene::CompareTables, &KillScene::CompareFolder, &KillScene::CompareFontconfig}) {
        std::string found = (this->*look)();
        if (!found.empty()) return found;
    }
    return {};
}

int64_t KillScene::CountActivations()
{
    Statement count(OpenWorkspace().database,
                    "SELECT seq FROM sqlite_sequence WHERE name = 'active_group'");
    return count.Step() ? count.GetNumber(0) : 0;
}

std::string KillScene::CompareTables()
{
    plugincore::Workspace& workspace = OpenWorkspace();
    for (const auto& program : workspace.programs.ListGone())
        return "a program that is gone is listed: " + program.identity;
    const std::vector<std::pair<const char*, const char*>> wrong = {
        {"active and not held",
         "SELECT path FROM active_file WHERE path NOT IN (SELECT file FROM hold)"},
        {"held and not active",
         "SELECT file FROM hold WHERE file NOT IN (SELECT path FROM active_file)"},
        {"active without a name",
         "SELECT path FROM active_file WHERE path NOT IN (SELECT file FROM active_face)"},
        {"group without files",
         "SELECT id FROM active_group WHERE id NOT IN (SELECT group_id FROM active_file)"}};
    for (const auto& [what, sql] : wrong)
        for (const std::string& text : GetTexts(workspace.database, sql))
            return std::string(what) + ": " + text;
    return {};
}

std::string KillScene::CompareFolder()
{
    plugincore::Workspace& workspace = OpenWorkspace();
    const ActivationFolder& folder = workspace.activation.GetFolder();
    std::vector<int64_t> groups = folder.List();
    std::sort(groups.begin(), groups.end());
    Statement known(workspace.database, "SELECT id FROM active_group ORDER BY id");
    std::vector<int64_t> wanted;
    while (known.Step()) wanted.push_back(known.GetNumber(0));
    if (groups != wanted) return "other groups in the folder than in the tables";
    for (const int64_t group : wanted) {
        Statement files(workspace.database,
                        "SELECT link, path FROM active_file WHERE group_id = ?");
        files.Bind(group);
        ActivationFolder::Links links;
        while (files.Step()) links[files.GetText(0)] = files.GetText(1);
        if (!folder.Holds(group, links))
            return "group " + std::to_string(group) + " has other links than in the tables";
    }
    std::error_code error;
    for (const auto& entry : fs::recursive_directory_iterator(folder.GetPath(), error))
        if (entry.path().filename().native()[0] == '.')
            return "half done: " + entry.path().string();
    return {};
}

std::string KillScene::CompareFontconfig()
{
    plugincore::Workspace& workspace = OpenWorkspace();
    const bool isEqual = workspace.ListActive().ours == workspace.activation.GetActive();
    return isEqual ? std::string() : "fontconfig shows other fonts than the tables have";
}
