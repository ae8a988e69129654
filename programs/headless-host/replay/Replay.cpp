#include "replay/Replay.h"

#include "HostPlatform_Linux.h"
#include "model/Journal.h"
#include "system/Interrupts.h"

namespace headless {

namespace {

using nlohmann::json;

constexpr unsigned kUnknownError = 0x15000000;
constexpr unsigned kBufferTooSmall = 0x0C000000;

// How far ahead the end of a call of PluginCore is looked for: its line follows those of the calls
// that are made in it.
constexpr size_t kMostNested = 100000;

// Whether the host does what the line says, rather than the plug-in.
bool IsAct(const RecordedLine& line)
{
    if (line.side == "world") return line.op != "default font";
    return line.side == "host" && (line.op == "send" || line.op == "read" || line.op == "save");
}

// Whether a line's operation is the one that a call has: "AI Menu Suite, AddMenuItem" for
// "AddMenuItem".
bool IsOperation(const std::string& op, const std::string& name)
{
    if (op == name) return true;
    const std::string end = ", " + name;
    return op.size() > end.size() && op.compare(op.size() - end.size(), end.size(), end) == 0;
}

std::string NumberLine(size_t number, const std::string& text)
{
    return std::to_string(number) + "  " + text;
}

}  // namespace

Replay::Replay(Host& host, ReplayFonts& fonts, JournalReader& journal, ReplayPlace place,
               bool compares)
    : mHost(host),
      mFonts(fonts),
      mJournal(journal),
      mPlace(std::move(place)),
      mCompares(compares),
      mComparison(mPlace.files)
{
    mHost.journal.SetFollower([this](const std::string& side, const std::string& op,
                                     const json& args, const json& result) {
        Follow({0, 0, side, op, args, result});
    });
    mHost.beforeCall = [this](const std::string& name) { BeginCall(name); };
    mFonts.findDefault = [this](const std::string& language) {
        const auto known = mDefaults.find(language);
        if (known != mDefaults.end()) return known->second;
        for (size_t i = 0; const RecordedLine* const line = PeekInMessage(i); ++i) {
            if (line->op == "default font" && line->args.value("language", "") == language) {
                return line->result.is_string() ? line->result.get<std::string>() : std::string();
            }
            if (mCompares) break;
        }
        return std::string();
    };
}

Replay::~Replay()
{
    mHost.journal.SetFollower({});
    mHost.beforeCall = {};
    mFonts.findDefault = {};
    // A plug-in that was stopped within its life isn't ready to be unloaded.
    if (mModule) mModule->LeaveLoaded();
}

bool Replay::Load(const std::string& pluginPath, std::string& error)
{
    mModule = PluginModule::Load(pluginPath, error);
    if (!mModule) return false;
    mHost.plugin =
        mHost.handles.Issue(std::make_shared<PluginObject>(PluginObject{mModule->GetPath()}));
    mPump = std::make_unique<MessagePump>(mHost, mModule->GetMain());
    return true;
}

void Replay::Play()
{
    while (IsPlaying() && !IsInterrupted() && mJournal.Peek() != nullptr) PerformNext();
}

void Replay::PerformNext()
{
    const RecordedLine line = *mJournal.Peek();
    if (!mCompares) (void)mJournal.Take();
    bool isDone = false;
    try {
        if (line.side == "world" && line.op == "default font") {
            const auto language = line.args.at("language").get<std::string>();
            mDefaults[language] = line.result.get<std::string>();
            (void)mHost.fonts.GetDefaultNameOf(language);  // it is in the journal
            isDone = true;
        } else {
            isDone = IsAct(line) && Perform(line);
        }
    } catch (const std::exception& exception) {
        mError = "line " + std::to_string(line.number) + ": cannot be played: " + exception.what();
    }
    if (!mError.empty()) mHasStopped = true;
    if (!IsPlaying() || !mCompares) return;
    const RecordedLine* const next = mJournal.Peek();
    const bool hasMoved = next == nullptr || next->number != line.number;
    // A call that the plug-in made while no message was sent, or something that isn't there.
    if (!isDone || !hasMoved) Differ(line, nullptr, {});
}

const RecordedLine* Replay::PeekInMessage(size_t ahead)
{
    if (mCompares || !mIsInMessage) return mJournal.Peek(ahead);
    return ahead < mMessage.size() ? &mMessage[ahead] : nullptr;
}

void Replay::LoadMessage()
{
    mMessage.clear();
    size_t nested = 0;
    while (mJournal.Peek() != nullptr) {
        RecordedLine line = mJournal.Take();
        const bool isHost = line.side == "host";
        if (isHost && line.op == "send") ++nested;
        if (isHost && line.op == "answer" && nested-- == 0) return;
        mMessage.push_back(std::move(line));
    }
}

void Replay::BeginCall(const std::string& name)
{
    if (!IsPlaying()) return;
    while (mCompares && mJournal.Peek() != nullptr && IsAct(*mJournal.Peek()) && IsPlaying()) {
        PerformNext();  // what happened inside of this call
    }
    for (size_t i = 0; const RecordedLine* const line = PeekInMessage(i); ++i) {
        if (line->side == "suite" && IsOperation(line->op, name)) {
            json injected = line->result.is_object() ? line->result.value("injected", json())
                                                     : line->args.value("injected", json());
            // The two operations of the basic suite have no other results.
            if (line->result.is_number() && line->result != 0 && injected.is_null()) {
                injected = true;
            }
            if (injected.is_null()) return;
            Fault fault;
            if (!injected.is_string() || !ReadFault(injected.get<std::string>(), fault)) {
                const json& status =
                    line->result.is_object() ? line->result.at("status") : line->result;
                fault.status = status.get<int>();
            }
            mHost.suiteFaults.FailCall(1, fault);
            return;
        }
        if (mCompares) return;
    }
}

void Replay::Follow(const RecordedLine& arisen)
{
    if (!IsPlaying()) return;
    if (mCompares) {
        Compare(arisen);
    } else {
        PassOver(arisen);
    }
}

void Replay::Compare(const RecordedLine& arisen)
{
    const RecordedLine* const expected = mJournal.Peek();
    if (expected == nullptr) {
        mHasStopped = true;  // the journal has no more lines
        return;
    }
    const std::string where = mComparison.FindDifference(*expected, arisen);
    if (!where.empty()) {
        Differ(*expected, &arisen, where);
        return;
    }
    mShown.emplace_back(NumberLine(expected->number, DescribeLine(*expected)),
                        NumberLine(expected->number, DescribeLine(arisen)));
    if (mShown.size() >= kShownLines) mShown.pop_front();
    ++mPlayed;
    (void)mJournal.Take();
}

void Replay::PassOver(const RecordedLine& arisen)
{
    ++mPlayed;
    for (size_t i = 0; i < mMessage.size(); ++i) {
        if (mMessage[i].side != arisen.side || mMessage[i].op != arisen.op) continue;
        mMessage.erase(mMessage.begin(), mMessage.begin() + static_cast<std::ptrdiff_t>(i) + 1);
        return;
    }
}

void Replay::Differ(const RecordedLine& expected, const RecordedLine* arisen,
                    const std::string& where)
{
    mHasStopped = true;
    ReplayDifference difference;
    difference.line = expected.number;
    difference.where = where;
    difference.expected = DescribeLine(expected);
    if (arisen != nullptr) difference.came = DescribeLine(*arisen);
    for (const auto& [recorded, came] : mShown) {
        difference.before.push_back(recorded);
        difference.cameBefore.push_back(came);
    }
    mDifference = std::move(difference);
}

const RecordedLine* Replay::FindAnswer(const std::string& function, size_t start)
{
    size_t nested = 0;
    for (size_t i = start; i < kMostNested; ++i) {
        const RecordedLine* const line = PeekInMessage(i);
        if (line == nullptr) {
            // The journal ends within this call: what it returned isn't known.
            mHasStopped = mHasStopped || mCompares;
            return nullptr;
        }
        if (line->side == "host" && line->op == "send") ++nested;
        if (line->side == "host" && line->op == "answer" && nested-- == 0) return nullptr;
        if (line->side == "core" && line->op == function && nested == 0) return line;
    }
    return nullptr;
}

void Replay::AnswerCore(const std::string& function, const json& arguments, HostAnswer& answer)
{
    answer.status = kUnknownError;
    if (!IsPlaying()) return;
    // What the real PluginCore shows during a call.
    for (const RecordedLine* line = PeekInMessage(); line != nullptr && line->side == "alert";
         line = PeekInMessage()) {
        const std::string message = line->args.value("message", "");
        const std::string information = line->args.value("information", "");
        GetHostPlatform()->showAlert(message.c_str(), information.c_str());
        if (!IsPlaying()) return;
    }
    const RecordedLine* const next = PeekInMessage();
    answer.rebuildsMenu = next != nullptr && next->side == "core" && next->op == "rebuild menu";
    if (answer.rebuildsMenu) mHost.journal.Write("core", "rebuild menu", json::object(), nullptr);
    if (function == "IdleEvent" || function == "ProcessPanelMessages") {
        answer.status = 0;  // ticks have no line in the journal
        return;
    }
    const RecordedLine* line = FindAnswer(function);
    if (line == nullptr) return;
    if (line->result == "throws") {
        mHost.journal.Write("core", function, arguments, "throws");
        ThrowFault("int");
    }
    const json result = line->result;
    if (!result.is_object()) {
        if (result.is_number_integer()) answer.status = result.get<unsigned>();
        return;
    }
    answer.status = result.value("status", kUnknownError);
    if (function == "GetMenus" && answer.status == kBufferTooSmall) {
        // The plug-in asks how large the text is, which only the next answer says.
        line = FindAnswer(function, 1);
        if (line == nullptr || !line->result.is_object()) return;
        mText = line->result["menus"].is_string() ? line->result["menus"].get<std::string>() : "";
        answer.status = 0;
        answer.hasText = true;
    }
    for (const auto& [name, value] : result.items()) {
        if (name == "status") continue;
        if (value.is_string() && answer.status == 0) {
            mText = value.get<std::string>();
            answer.hasText = true;
        }
        answer.hasNumber = answer.hasNumber || value.is_number();
        if (value.is_number_integer()) answer.number = value.get<int>();
        answer.hasFlag = answer.hasFlag || value.is_boolean();
        if (value.is_boolean()) answer.flag = value.get<bool>();
    }
    answer.text = mText.c_str();
    answer.textSize = mText.size();
}

}  // namespace headless
