#include "KillScene.h"

#include <fcntl.h>
#include <signal.h>

#include <algorithm>
#include <chrono>
#include <sstream>
#include <thread>

namespace fs = std::filesystem;
using plugincore::ActivationFolder;
using plugincore::Statement;

namespace {

constexpr std::array<const char*, 4> kFonts = {"DejaVuSans", "DejaVuSans-Bold", "DejaVuSerif",
                                               "DejaVuSerif-Bold"};
constexpr int kDocuments = 6;

std::string GetDocument(int number) { return "d" + std::to_string(number) + ".eps"; }

// An EPS file that uses two of the fonts. Which two depends on the number.
std::string MakeDocument(int number)
{
    std::string text = "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: 0 0 10 10\n%%DocumentFonts:";
    for (int font = 0; font < 2; ++font)
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
    // The host's default font must not depend on what is active, so it is none of kFonts.
    FontTestHome::CopyFont("DejaVuSansMono", home.GetUserFonts());
    FontTestHome::WriteFile(
        home.GetPath() / "fonts.conf",
        "<fontconfig><dir>" + home.GetUserFonts().string() +
            "</dir><cachedir prefix=\"xdg\">fontconfig</cachedir>"
            "<match target=\"pattern\"><edit name=\"family\" mode=\"prepend\" "
            "binding=\"strong\"><string>DejaVu Sans Mono</string></edit></match></fontconfig>");
    for (const char* const font : kFonts) FontTestHome::CopyFont(font, home.GetLibrary());
    for (int number = 0; number < kDocuments; ++number)
        FontTestHome::WriteFile(home.GetPath() / GetDocument(number), MakeDocument(number));
    for (size_t number = kFirstSaver; number < kHosts; ++number)
        FontTestHome::WriteFile(GetSaved(number), MakeDocument(static_cast<int>(number)));
    ASSERT_EQ(0, Run({"install"})) << output;
    (void)OpenServices();  // this process only reads the tables
}

std::string KillScene::WriteHostScript()
{
    std::string session;
    std::vector<int> open;
    for (int line = 0; line < 2000; ++line) {
        const bool opens = open.empty() || (open.size() < 2 && Random(0, 1) == 0);
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
    return session;
}

fs::path KillScene::GetSaved(size_t number) const
{
    return home.GetPath() / "saved" / ("s" + std::to_string(number) + ".eps");
}

std::string KillScene::WriteSaverScript(size_t number) const
{
    std::string session = "open '" + GetSaved(number).string() + "'\n";
    for (int line = 0; line < 1000; ++line) session += "change\nsave\n";
    return session;
}

std::unique_ptr<ChildProcess> KillScene::StartHost(size_t number)
{
    const std::string session = number < kFirstSaver ? WriteHostScript() : WriteSaverScript(number);
    return Play("host-" + std::to_string(number), session);
}

std::unique_ptr<ChildProcess> KillScene::Play(const std::string& name, const std::string& session)
{
    FontTestHome::WriteFile(home.GetPath() / name, session);
    return std::make_unique<ChildProcess>(
        std::vector<std::string>{HEADLESS_HOST_PROGRAM, "script", home.GetPath() / name, "--plugin",
                                 PLUG_IN_FOLDER, "--frameworks", PRIVATE_FRAMEWORKS_FOLDER},
        home.GetPath() / (name + "-output"));
}

int KillScene::PlayShortScript()
{
    const auto host = Play("short", "open '" + GetSaved(kFirstSaver).string() + "'\nclose\n");
    const int status = host->Wait();
    output = host->GetOutput();
    return status;
}

void KillScene::StartAll()
{
    if (!mDaemon) mDaemon = StartDaemon({"--log", home.GetPath() / "log"});
    EXPECT_FALSE(mDaemon->HasEnded()) << mDaemon->GetOutput();
    for (size_t number = 0; number < kHosts; ++number) {
        if (mHosts[number] && mHosts[number]->HasEnded()) {
            EXPECT_EQ(0, mHosts[number]->Wait()) << mHosts[number]->GetOutput();
            mHosts[number].reset();
        }
        if (!mHosts[number]) mHosts[number] = StartHost(number);
    }
}

pid_t KillScene::FindWriter()
{
    // The byte of the -shm file that a connection locks while it writes: WAL_WRITE_LOCK of SQLite's
    // file format.
    constexpr off_t kWriteLock = 120;
    if (mLocks < 0) mLocks = open((home.GetData() / "Corvanta/fonts.db-shm").c_str(), O_RDWR);
    struct flock lock = {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = kWriteLock;
    lock.l_len = 1;
    const bool isHeld = fcntl(mLocks, F_GETLK, &lock) == 0 && lock.l_type != F_UNLCK;
    return isHeld ? lock.l_pid : 0;
}

std::vector<std::unique_ptr<ChildProcess>*> KillScene::ListRunning()
{
    std::vector<std::unique_ptr<ChildProcess>*> running;
    if (mDaemon) running.push_back(&mDaemon);
    for (auto& host : mHosts)
        if (host) running.push_back(&host);
    return running;
}

std::string KillScene::GetName(const std::unique_ptr<ChildProcess>* process) const
{
    if (process == &mDaemon) return "Vexcor";
    const auto number = static_cast<size_t>(process - mHosts.data());
    return number < kFirstSaver ? "host" : "saver";
}

std::unique_ptr<ChildProcess>* KillScene::WaitForWriter(std::chrono::microseconds sinceLock)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(100);
    pid_t writer = 0;
    for (Clock::time_point start, now = Clock::now(); now < end; now = Clock::now()) {
        const pid_t present = FindWriter();
        if (present != writer) start = now;
        writer = present;
        if (writer == 0 || now - start < sinceLock) continue;
        for (auto* const process : ListRunning())
            if ((*process)->GetNumber() == writer) return process;
    }
    return nullptr;
}

std::string KillScene::KillOne()
{
    const auto running = ListRunning();
    auto* victim = running[static_cast<size_t>(Random(0, static_cast<int>(running.size()) - 1))];
    if (Random(0, 2) != 0) {
        const std::chrono::microseconds sinceLock(Random(0, 1000));
        if (auto* const writer = WaitForWriter(sinceLock)) victim = writer;
    }
    (*victim)->Send(SIGKILL);
    EXPECT_THAT((*victim)->Wait(), testing::AnyOf(-SIGKILL, 0)) << (*victim)->GetOutput();
    victim->reset();
    return GetName(victim);
}

std::vector<std::string> KillScene::KillSome(unsigned most)
{
    const unsigned wanted = std::min(static_cast<unsigned>(Random(1, 3)), most);
    std::vector<std::string> victims;
    while (victims.size() < wanted) {
        std::this_thread::sleep_for(std::chrono::milliseconds(Random(0, 100)));
        victims.push_back(KillOne());
    }
    return victims;
}

std::string KillScene::FindBrokenSave(bool isAfterStart) const
{
    for (size_t number = kFirstSaver; number < kHosts; ++number) {
        const std::string text = ReadFile(GetSaved(number));
        const bool isWhole = text.rfind("%!PS-Adobe", 0) == 0 &&
                             text.find("%%EOF", text.size() - 7) != std::string::npos;
        if (!isWhole) return "not whole: " + GetSaved(number).string();
    }
    if (!isAfterStart) return {};
    for (const auto& entry : fs::directory_iterator(GetSaved(kFirstSaver).parent_path()))
        if (entry.path().extension() != ".eps" || entry.path().filename().native()[0] != 's')
            return "left over: " + entry.path().string();
    return {};
}

void KillScene::EndAll()
{
    for (auto& host : mHosts) {
        if (!host) continue;
        host->Send(SIGTERM);
        // A host that is still starting has no signal handler yet and is ended by the signal.
        EXPECT_THAT(host->Wait(), testing::AnyOf(130, 0, -SIGTERM)) << host->GetOutput();
        host.reset();
    }
    if (!mDaemon) return;
    mDaemon->Send(SIGTERM);
    EXPECT_EQ(0, mDaemon->Wait()) << mDaemon->GetOutput();
    mDaemon.reset();
}

std::string KillScene::FindDisagreement()
{
    plugincore::Database& database = OpenServices().database;
    const plugincore::Transaction noChanges(database);
    EXPECT_EQ("", database.FindDamage());
    EXPECT_TRUE(GetTexts(database, "PRAGMA foreign_key_check").empty());
    for (const auto look :
         {&KillScene::CompareFolder, &KillScene::CompareTables, &KillScene::CompareFontconfig}) {
        std::string found = (this->*look)();
        if (!found.empty()) return found;
    }
    return {};
}

std::map<std::string, int> KillScene::CountRepairs() const
{
    std::map<std::string, int> repairs;
    std::istringstream lines(ReadFile(home.GetPath() / "log"));
    for (std::string line; std::getline(lines, line);)
        for (const char* const what : {"a program is gone", "dropped its hold", "deactivated",
                                       "folder: removed", "folder: restored"})
            if (line.find(std::string("\t") + what) != std::string::npos) ++repairs[what];
    return repairs;
}

int64_t KillScene::CountActivations()
{
    Statement count(OpenServices().database,
                    "SELECT seq FROM sqlite_sequence WHERE name = 'active_group'");
    return count.Step() ? count.GetNumber(0) : 0;
}

std::string KillScene::CompareTables()
{
    plugincore::Services& services = OpenServices();
    for (const auto& program : services.programs.ListGone())
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
        for (const std::string& text : GetTexts(services.database, sql))
            return std::string(what) + ": " + text;
    return {};
}

std::string KillScene::CompareFolder()
{
    plugincore::Services& services = OpenServices();
    const ActivationFolder& folder = services.activation.GetFolder();
    std::vector<int64_t> groups = folder.List();
    std::sort(groups.begin(), groups.end());
    Statement known(services.database, "SELECT id FROM active_group ORDER BY id");
    std::vector<int64_t> wanted;
    while (known.Step()) wanted.push_back(known.GetNumber(0));
    if (groups != wanted) return "other groups in the folder than in the tables";
    for (const int64_t group : wanted) {
        Statement files(services.database, "SELECT link, path FROM active_file WHERE group_id = ?");
        files.Bind(group);
        ActivationFolder::Links links;
        while (files.Step()) links[files.GetText(0)] = files.GetText(1);
        if (!folder.Holds(group, links))
            return "other links in a group than in the tables: " + std::to_string(group);
    }
    std::error_code error;
    for (const auto& entry : fs::recursive_directory_iterator(folder.GetPath(), error))
        if (entry.path().filename().native()[0] == '.')
            return "half done: " + entry.path().string();
    return {};
}

std::string KillScene::CompareFontconfig()
{
    plugincore::Services& services = OpenServices();
    const bool isEqual = services.ListActive().ours == services.activation.GetActive();
    return isEqual ? std::string() : "fontconfig shows other fonts than the tables have";
}
