// What the host does in a replay: the lines that are no calls of the plug-in.

#include <fcntl.h>
#include <sys/stat.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "application/Application.h"
#include "model/DocumentJson.h"
#include "model/PluginCode.h"
#include "replay/Replay.h"

namespace headless {

namespace {

using nlohmann::json;
namespace fs = std::filesystem;

char sUnknownHandle;  // its address is a handle that no host has handed out

double GetNow()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

}  // namespace

void* Replay::FindHandle(const json& name) const
{
    const auto text = name.get<std::string>();
    if (text == "null") return nullptr;
    if (text == "unknown") return &sUnknownHandle;
    void* const handle = mHost.handles.FindDescribed(mComparison.GetPresentName(text));
    if (handle == nullptr) throw std::runtime_error("there is no " + text);
    return handle;
}

DocumentObject* Replay::FindDocument(const json& name) const
{
    void* const handle = FindHandle(name);
    for (const auto& document : mHost.GetDocuments()) {
        if (document->handle == handle) return document.get();
    }
    throw std::runtime_error(name.get<std::string>() + " isn't open");
}

std::string Replay::GetPath(const json& recorded) const
{
    const auto path = recorded.get<std::string>();
    return path.empty() ? path : mPlace.files + path;
}

// Creates, changes or deletes a file as the plug-in could read it.
bool Replay::WriteFile(const json& args)
{
    const fs::path relative = fs::path("/" + args.at("path").get<std::string>()).relative_path();
    for (const fs::path& part : relative) {
        if (part == "..") throw std::runtime_error("the path leads out of the folder");
    }
    const fs::path path = fs::path(mPlace.files) / relative;
    std::error_code ignored;  // the plug-in reads another beginning then, which is a difference
    if (args.at("head").is_string()) {
        (void)fs::create_directories(path.parent_path(), ignored);
        std::ofstream(path, std::ios::binary) << args.at("head").get<std::string>();
        // The plug-in sees by the time whether a document was saved.
        const timespec time = {args.value("time", time_t{0}), 0};
        const timespec times[2] = {time, time};
        (void)utimensat(AT_FDCWD, path.c_str(), times, 0);  // as above
    } else {
        (void)fs::remove(path, ignored);
    }
    return true;
}

bool Replay::PerformOnDocument(const RecordedLine& line, DocumentObject& document)
{
    if (line.op == "document removed") {
        mHost.RemoveDocument(&document);
    } else if (line.op == "document made current") {
        mHost.MakeCurrent(&document);
    } else if (line.op == "document changed") {
        mHost.MarkChanged(document);
    } else if (line.op == "document saved") {
        mHost.MarkSaved(document, GetPath(line.args.at("path")));
    } else if (line.op == "text added") {
        mHost.AddText(document, {line.args.at("font").get<std::string>(),
                                 line.args.at("words").get<std::string>()});
    } else if (line.op == "file placed") {
        mHost.AddLink(document, line.args.at("path").get<std::string>());
    } else {
        return false;
    }
    return true;
}

bool Replay::PerformInWorld(const RecordedLine& line)
{
    const json& args = line.args;
    if (line.op == "document added") {
        (void)mHost.AddDocument(ReadContent(args.at("content")), GetPath(args.at("path")));
    } else if (line.op == "path added") {
        (void)mHost.AddPath(GetPath(args.at("path")));
    } else if (line.op == "path removed") {
        mHost.RemovePath(FindHandle(args.at("handle")));
    } else if (line.op == "active fonts") {
        mFonts.active = args.at("names").get<std::set<std::string>>();
        (void)mHost.fonts.RefreshActiveNames();  // what it lists is in the journal
    } else if (line.op == "dialog") {
        std::string title;
        // The outcome is in the journal.
        (void)RunMissingFontsDialog(mHost, args.at("language").get<std::string>(),
                                    args.at("window").get<long>(), title);
    } else if (line.op == "panel asks") {
        mHost.journal.Write("world", line.op, args, line.result);
        std::string error;
        mBus = PanelBus::Open(mPlace.frameworks, kPortResponseEvent, error);
        if (!mBus || !mBus->Send(kPortRequestEvent, error)) throw std::runtime_error(error);
    } else if (line.op == "file" || line.op == "clock") {
        if (line.op == "file") (void)WriteFile(args);
        if (line.op == "clock") mClockOffset = args.at("offset").get<long>();
        mHost.journal.Write("world", line.op, args, line.result);
    } else {
        return PerformOnDocument(line, *FindDocument(args.at("handle")));
    }
    return true;
}

bool Replay::SendRaw(const RecordedLine& line)
{
    const json& raw = line.args.at("raw");
    MessagePump::RawMessage message = mPump->MakeRaw();
    auto type = line.args.value("type", std::string());
    if (!raw.is_null()) {
        if (!raw.at("self").get<bool>()) message.d.self = nullptr;
        if (!raw.at("basic").get<bool>()) message.d.basic = nullptr;
        if (!raw.at("globals").get<bool>()) message.d.globals = nullptr;
        message.words[0] = FindHandle(raw.at("handle"));
        if (raw.at("type").get<bool>()) message.words[1] = type.data();
        message.words[2] = FindHandle(raw.at("data"));
    }
    json args = json::object();
    if (line.args.contains("type")) args["type"] = type;
    const auto text = [&](const char* key) {
        return line.args.at(key).is_string() ? line.args.at(key).get<std::string>() : std::string();
    };
    const std::string caller = text("caller");
    const std::string selector = text("selector");
    const bool hadGlobals = message.d.globals != nullptr;
    (void)mPump->SendRaw(line.args.at("caller").is_null() ? nullptr : caller.c_str(),
                         line.args.at("selector").is_null() ? nullptr : selector.c_str(),
                         raw.is_null() ? nullptr : &message, std::move(args));
    // As the script's action does it.
    if (hadGlobals && mHost.globalsWord == nullptr) mHost.suites.AllowUnreleased(false);
    return true;
}

// The plug-in's answers are in the journal, where they are compared.
bool Replay::SendMessage(const RecordedLine& line)
{
    if (line.args.contains("raw")) return SendRaw(line);
    const auto caller = line.args.at("caller").get<std::string>();
    const auto selector = line.args.at("selector").get<std::string>();
    if (caller == "SP Interface") {
        const bool isEnd = selector == "Shutdown";
        // As Application does it.
        if (isEnd && mIsRunning) mHost.suites.AllowUnreleased(false);
        const AIErr result = mPump->SendInterface(selector.c_str());
        if (selector == "Startup") {
            mIsRunning = result == kHostSuccess && mHost.globalsWord != nullptr;
            if (!mIsRunning) mHost.suites.AllowUnreleased(true);
        }
        if (isEnd) mHost.suites.AllowUnreleased(false);
    } else if (caller == "SP Access" && selector == "Unload") {
        const AIErr unloaded = mPump->SendUnload();
        if (!IsPlaying()) return true;
        mPump.reset();
        mBus.reset();
        FinishUnload(mHost, std::move(mModule), unloaded);
    } else if (caller == "AI Notifier") {
        (void)mPump->SendNotifier(FindHandle(line.args.at("handle")),
                                  line.args.at("type").get<std::string>(),
                                  FindHandle(line.args.at("notifyData")));
    } else if (caller == "AI File Format") {
        (void)mPump->SendCheck(FindHandle(line.args.at("handle")),
                               FindHandle(line.args.at("pathHandle")));
    } else if (caller == "AI Timer") {
        (void)mPump->SendTimer(FindHandle(line.args.at("handle")));
    } else if (caller == "AI Menu") {
        (void)mPump->SendMenu(selector.c_str(), FindHandle(line.args.at("item")));
    } else {
        return false;
    }
    return true;
}

bool Replay::Perform(const RecordedLine& line)
{
    if (line.side == "world") return PerformInWorld(line);
    if (line.op == "read" || line.op == "save") {
        mHost.journal.Write("host", line.op, line.args, line.result);
        return true;
    }
    if (!mPump) throw std::runtime_error("the plug-in is unloaded");
    // The plug-in's clock is that of the recorded run.
    if (mStart == 0) mStart = GetNow();
    const double passed = GetNow() - mStart;
    plugin_code::SetClockOffset(mClockOffset +
                                (line.seconds > 0 ? std::lround(line.seconds - passed) : 0));
    if (!mCompares) LoadMessage();
    mIsInMessage = true;
    const bool isSent = SendMessage(line);
    mIsInMessage = false;
    return isSent;
}

}  // namespace headless
