#include "validator/random/RandomMessages.h"

#include <deque>
#include <iterator>

#include "session/SessionWords.h"
#include "validator/random/HostModel.h"
#include "validator/random/RandomCore.h"
#include "validator/random/RandomDocument.h"
#include "validator/random/RandomNumbers.h"
#include "validator/random/RandomSend.h"

namespace headless {

namespace {

constexpr size_t kMostDocuments = 8;

constexpr const char* kDocumentPaths[] = {"a.ai",      "b.ai",    "form.ait",     "letter.eps",
                                          "print.pdf", "many.ai", "two words.ai", "broken.ai",
                                          "c.ai",      "big.ait", "old.eps",      "\xC3\xA4.pdf"};
constexpr size_t kFirstDocuments = 8;  // of kDocumentPaths, that are there from the start
constexpr char kBrokenPath[] = "broken.ai";

// The items of the simulated PluginCore's own menu tree that can be chosen.
constexpr const char* kCommands[] = {"Activate Fonts", "Deactivate Fonts", "About"};
constexpr const char* kLibraries[] = {"Select Library/One", "Select Library/Two"};
constexpr size_t kUpdatedItems = 4;  // those on the top level

// What the plug-in's start depends on.
constexpr const char* kStartFunctions[] = {"GetMenus", "GetSettings", "PluginIsEnabled",
                                           "RegisterPlugPlug"};

// Operations that a real host may be within when it gets to send another message, and lines that
// are always possible.
constexpr const char* kNestingOperations[] = {"AcquireSuite",   "GetDocumentFileSpecification",
                                              "GetMatchingArt", "GetTextRunsIterator",
                                              "GetItemText",    "EnableItem",
                                              "GetDocument",    "AddMenuItem"};
constexpr const char* kNestingFunctions[] = {"HandleOpenExistingDocument",
                                             "InvokeResolveDialog",
                                             "ActivateChosenFonts",
                                             "HandleMenuSelection",
                                             "IdleEvent",
                                             "ProcessPanelMessages",
                                             "InvokeCommandDialog",
                                             "GetMenus",
                                             "HandleSaveDocument",
                                             "HandleCloseDocument",
                                             "PluginIsEnabled"};
constexpr const char* kNestedLines[] = {"tick", "tick 3", "show menu", "fonts-changed", "about"};

// Operations that every update of a menu item calls.
constexpr const char* kFailingOperations[] = {"AcquireSuite", "GetDocumentFileSpecification",
                                              "GetItemText"};

class ScriptMaker {
public:
    ScriptMaker(uint64_t seed, bool keepsModel, bool isTypeloft)
        : mRandom(seed), mKeepsModel(keepsModel), mIsTypeloft(isTypeloft)
    {
        for (size_t i = 0; i < kFirstDocuments; ++i) MakeDocument(kDocumentPaths[i]);
    }

    std::string Next()
    {
        while (mLines.empty()) MakeAct();
        std::string line = std::move(mLines.front());
        mLines.pop_front();
        return line;
    }

private:
    // One kind of act. An act makes at least one line, all of which the host accepts one after the
    // other, and notes in the model what they do.
    struct Act {
        uint64_t weight;
        uint64_t weightWithoutModel;
        bool (ScriptMaker::*isPossible)() const;
        void (ScriptMaker::*make)();
    };

    static const Act kActs[];

    uint64_t GetWeight(const Act& act) const
    {
        if (!(this->*act.isPossible)()) return 0;
        return mKeepsModel ? act.weight : act.weightWithoutModel;
    }

    void MakeAct();

    bool Always() const { return true; }
    bool IsDocumentOpen() const { return mModel.CountOpen() > 0; }
    bool AreTwoOpen() const { return mModel.CountOpen() > 1; }
    bool MayOpen() const { return mModel.CountMost() < kMostDocuments; }
    bool MayOpenFile() const { return MayOpen() && !mModel.GetReadableFiles().empty(); }
    bool IsFileThere() const { return !mModel.GetFiles().empty(); }
    bool MayPlace() const { return IsDocumentOpen() && IsFileThere(); }
    bool HasCurrentFile() const { return mModel.HasCurrentFile(); }
    bool AreItemsEnabled() const { return mIsTypeloft && mModel.AreItemsEnabled(); }
    bool AreLibrariesThere() const { return mIsTypeloft && mModel.AreLibrariesThere(); }
    bool IsTypeloft() const { return mIsTypeloft; }
    bool IsCoreChanged() const { return mIsTypeloft && !mModel.GetChangedCore().empty(); }
    // A line within PluginCore's call opens a document only if the call is certain to come.
    bool MayOpenNested() const
    {
        return mIsTypeloft && mModel.CountMost() + 2 <= kMostDocuments &&
               !mModel.GetReadableFiles().empty() && !mModel.IsFaultPending() &&
               !mModel.IsCoreChanged("PluginIsEnabled") && AreItemsEnabled();
    }

    void MakeAnyDocument() { MakeDocument(mRandom.Pick(kDocumentPaths)); }
    void MakeDocument(const std::string& path);
    void MakeVanish();
    void MakeActive();
    void MakeClock();
    void MakeOpen() { Open(mRandom.Pick(mModel.GetReadableFiles())); }
    void MakeOpenAny();
    void MakeOpenTwice();
    void MakeNew();
    void MakeText();
    void MakePlace();
    void MakeChange() { Add("change"); }
    void MakeSave() { Add("save"); }
    void MakeSaveAs();
    void MakeCurrent();
    void MakeClose();
    void MakeCloseAny();
    void MakeTick();
    void MakeShowMenu();
    void MakeFontsChanged() { Add("fonts-changed"); }
    void MakeAbout() { Add("about"); }
    void MakeCommand() { Add(std::string("menu ") + mRandom.Pick(kCommands)); }
    void MakeLibrary() { Add("menu " + QuoteSessionWord(mRandom.Pick(kLibraries))); }
    void MakeNested();
    void MakeNestedOpen();
    void MakeCore();
    void MakeCoreReset() { ResetCore(mRandom.Pick(mModel.GetChangedCore())); }
    void MakeFault();
    void MakeRestart();
    void MakeSend() { Add(MakeSendLine(mRandom, mModel.CountOpen(), mIsTypeloft)); }

    void Add(std::string line) { mLines.push_back(std::move(line)); }
    void AddWord(const std::string& action, const std::string& word)
    {
        Add(action + " " + QuoteSessionWord(word));
    }
    void Open(const std::string& path);
    void ResetCore(std::string function);

    RandomNumbers mRandom;
    const bool mKeepsModel;
    const bool mIsTypeloft;
    HostModel mModel;
    std::deque<std::string> mLines;  // that are made and not yet taken
    size_t mSavedCount = 0;
};

const ScriptMaker::Act ScriptMaker::kActs[] = {
    {16, 3, &ScriptMaker::MayOpenFile, &ScriptMaker::MakeOpen},
    {2, 1, &ScriptMaker::MayOpen, &ScriptMaker::MakeOpenAny},
    {2, 0, &ScriptMaker::MayOpenNested, &ScriptMaker::MakeOpenTwice},
    {5, 2, &ScriptMaker::MayOpen, &ScriptMaker::MakeNew},
    {6, 1, &ScriptMaker::IsDocumentOpen, &ScriptMaker::MakeText},
    {2, 1, &ScriptMaker::MayPlace, &ScriptMaker::MakePlace},
    {6, 2, &ScriptMaker::IsDocumentOpen, &ScriptMaker::MakeChange},
    {5, 1, &ScriptMaker::HasCurrentFile, &ScriptMaker::MakeSave},
    {3, 1, &ScriptMaker::IsDocumentOpen, &ScriptMaker::MakeSaveAs},
    {4, 1, &ScriptMaker::AreTwoOpen, &ScriptMaker::MakeCurrent},
    {8, 2, &ScriptMaker::IsDocumentOpen, &ScriptMaker::MakeClose},
    {8, 2, &ScriptMaker::AreTwoOpen, &ScriptMaker::MakeCloseAny},
    {10, 4, &ScriptMaker::Always, &ScriptMaker::MakeTick},
    {8, 3, &ScriptMaker::Always, &ScriptMaker::MakeShowMenu},
    {3, 1, &ScriptMaker::Always, &ScriptMaker::MakeFontsChanged},
    {2, 1, &ScriptMaker::Always, &ScriptMaker::MakeAbout},
    {5, 2, &ScriptMaker::AreItemsEnabled, &ScriptMaker::MakeCommand},
    {3, 0, &ScriptMaker::AreLibrariesThere, &ScriptMaker::MakeLibrary},
    {3, 1, &ScriptMaker::Always, &ScriptMaker::MakeActive},
    {3, 1, &ScriptMaker::Always, &ScriptMaker::MakeClock},
    {3, 1, &ScriptMaker::Always, &ScriptMaker::MakeAnyDocument},
    {1, 1, &ScriptMaker::IsFileThere, &ScriptMaker::MakeVanish},
    {5, 2, &ScriptMaker::Always, &ScriptMaker::MakeNested},
    {2, 0, &ScriptMaker::MayOpenNested, &ScriptMaker::MakeNestedOpen},
    {6, 3, &ScriptMaker::IsTypeloft, &ScriptMaker::MakeCore},
    {5, 3, &ScriptMaker::IsCoreChanged, &ScriptMaker::MakeCoreReset},
    {2, 1, &ScriptMaker::IsTypeloft, &ScriptMaker::MakeFault},
    {1, 1, &ScriptMaker::Always, &ScriptMaker::MakeRestart},
    {0, 90, &ScriptMaker::Always, &ScriptMaker::MakeSend},
};

void ScriptMaker::MakeAct()
{
    uint64_t weights[std::size(kActs)];
    uint64_t sum = 0;
    for (size_t i = 0; i < std::size(kActs); ++i) sum += weights[i] = GetWeight(kActs[i]);
    uint64_t left = mRandom.Below(sum);
    size_t chosen = 0;
    while (left >= weights[chosen]) left -= weights[chosen++];
    (this->*kActs[chosen].make)();
}

void ScriptMaker::MakeDocument(const std::string& path)
{
    const bool isReadable = path != kBrokenPath && !mRandom.Once(30);
    Add(MakeDocumentLine(mRandom, path, isReadable));
    mModel.AddFile(path, isReadable);
}

void ScriptMaker::MakeVanish()
{
    const std::string path = mRandom.Pick(mModel.GetFiles());
    AddWord("vanish", path);
    mModel.RemoveFile(path);
}

void ScriptMaker::MakeActive()
{
    std::string line = "active";
    for (uint64_t count = mRandom.Between(1, 4); count > 0; --count) {
        line += " " + PickFont(mRandom);
    }
    Add(line);
}

// The missing-fonts dialog is dismissed for 15 seconds.
void ScriptMaker::MakeClock()
{
    constexpr const char* kMoves[] = {"+1",        "+14", "+15", "+16",   "+3600",
                                      "+31536000", "-1",  "-16", "-86400"};
    Add(std::string("clock ") + mRandom.Pick(kMoves));
}

void ScriptMaker::Open(const std::string& path)
{
    AddWord("open", path);
    mModel.Open(path);
}

void ScriptMaker::MakeOpenAny() { Open(mRandom.Pick(kDocumentPaths)); }

void ScriptMaker::MakeOpenTwice()
{
    const std::string path = mRandom.Pick(mModel.GetReadableFiles());
    Open(path);
    Open(path);
}

void ScriptMaker::MakeNew()
{
    Add("new");
    mModel.New();
}

void ScriptMaker::MakeText()
{
    std::string line = "text " + PickFont(mRandom);
    if (mRandom.Once(2)) line += " Some more words";
    Add(line);
}

void ScriptMaker::MakePlace() { AddWord("place", mRandom.Pick(mModel.GetFiles())); }

void ScriptMaker::MakeSaveAs()
{
    constexpr const char* kExtensions[] = {".ai", ".ai", ".ai", ".pdf", ".eps"};
    const std::string path = "saved-" + std::to_string(++mSavedCount) + mRandom.Pick(kExtensions);
    AddWord("save", path);
    mModel.SaveCurrentAs(path);
}

void ScriptMaker::MakeCurrent()
{
    const size_t index = mRandom.Below(mModel.CountOpen());
    const std::string name = mRandom.Once(2) ? mModel.GetName(index) : std::string();
    AddWord("current", name.empty() ? std::to_string(index + 1) : name);
    mModel.MakeCurrent(index);
}

void ScriptMaker::MakeClose()
{
    Add("close");
    mModel.CloseCurrent();
}

void ScriptMaker::MakeCloseAny()
{
    const size_t index = mRandom.Below(mModel.CountOpen());
    const std::string name = mRandom.Once(2) ? mModel.GetName(index) : std::string();
    AddWord("close", name.empty() ? std::to_string(index + 1) : name);
    mModel.Close(index);
}

void ScriptMaker::MakeTick()
{
    const uint64_t count = mRandom.Once(2) ? 1 : mRandom.Between(2, 20);
    Add(count == 1 ? "tick" : "tick " + std::to_string(count));
}

void ScriptMaker::MakeShowMenu()
{
    Add("show menu");
    mModel.CountCalls(kUpdatedItems);
}

void ScriptMaker::MakeNested()
{
    const bool isCore = mIsTypeloft && mRandom.Once(2);
    const std::string operation =
        isCore ? mRandom.Pick(kNestingFunctions) : mRandom.Pick(kNestingOperations);
    Add("during " + operation + " " + mRandom.Pick(kNestedLines));
}

void ScriptMaker::MakeNestedOpen()
{
    const std::string inner = QuoteSessionWord(mRandom.Pick(mModel.GetReadableFiles()));
    const std::string outer = mRandom.Pick(mModel.GetReadableFiles());
    switch (mRandom.Below(5)) {
        case 0:
            Add("during IdleEvent open " + inner);
            Add("tick");
            break;
        case 1:
            Add("during InvokeCommandDialog open " + inner);
            Add("about");
            break;
        case 2:
            Add("during HandleMenuSelection open " + inner);
            MakeCommand();
            break;
        case 3:
            mModel.ChangeCore("HandleOpenExistingDocument");
            Add("core HandleOpenExistingDocument " +
                QuoteSessionWord(R"(text=[{"PostScriptName":"Missing-One"}])"));
            Add("during InvokeResolveDialog open " + inner);
            Open(outer);
            break;
        default:
            Add("during HandleOpenExistingDocument open " + inner);
            Open(outer);
            break;
    }
    mModel.OpenNested();
}

void ScriptMaker::MakeCore()
{
    CoreLine core = MakeCoreLine(mRandom);
    Add(std::move(core.line));
    mModel.ChangeCore(core.function);
    if (core.rebuilds) mModel.AllowRebuild(core.function);
    if (core.disablesItems) mModel.DisableItems();
}

// A copy: the list that the name comes from changes.
void ScriptMaker::ResetCore(std::string function)
{
    Add("core " + function);
    mModel.ResetCore(function);
}

void ScriptMaker::MakeFault()
{
    if (mRandom.Once(4)) {
        Add(std::string("fail ") + mRandom.Pick(kFailingOperations));
        mModel.AddFault(kUpdatedItems);
        return;
    }
    const uint64_t calls = mRandom.Between(1, mRandom.Once(4) ? 60 : 10);
    // Statements of their own: within an expression, compilers choose the order.
    const std::string boundary = mRandom.Once(2) ? "fail-call " : "fail-core ";
    const std::string kind = MakeFaultKind(mRandom);
    Add(boundary + std::to_string(calls) + " " + kind);
    mModel.AddFault(calls);
}

// A start that fails would be a finding, so whatever could make it fail is over before.
void ScriptMaker::MakeRestart()
{
    for (const char* const function : kStartFunctions) {
        if (mModel.IsCoreChanged(function)) ResetCore(function);
    }
    while (mModel.IsFaultPending()) MakeShowMenu();
    Add("restart");
    mModel.Restart();
}

}  // namespace

std::vector<std::string> MakeRandomScript(unsigned long seed, size_t count, bool keepsModel,
                                          bool isTypeloft)
{
    ScriptMaker maker(seed, keepsModel, isTypeloft);
    std::vector<std::string> lines;
    lines.reserve(kFirstDocuments + count);
    while (lines.size() < kFirstDocuments + count) lines.push_back(maker.Next());
    return lines;
}

}  // namespace headless
