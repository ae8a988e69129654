#include "session/MessageActions.h"

#include <algorithm>
#include <set>

#include "panel/PanelBus.h"
#include "simulation/SimulatedWorld.h"

namespace headless {

namespace {

char sNoHandle;  // its address is a handle that no host has handed out

// The part of "key=value" behind the '='; false if `word` has another key.
bool TakeValue(const std::string& word, const char* key, std::string& value)
{
    const std::string start = std::string(key) + "=";
    if (word.rfind(start, 0) != 0) return false;
    value = word.substr(start.size());
    return true;
}

// What one `send` line makes of the message.
struct RawOrder {
    bool hasMessage = true;
    bool hasCaller = true;
    bool hasSelector = true;
    bool isSkipped = false;  // it names something that doesn't exist
    bool hasBadHandle = false;
    std::string type;
    std::string path;
    bool hasPath = false;
    std::string error;
};

// The handle that `value` names: null, unknown, stale, or the number of one in `handles` from 1.
void* ChooseHandle(Host& host, const std::string& value, const std::vector<void*>& handles,
                   RawOrder& order)
{
    unsigned long number = 0;
    if (ReadCount(value, number) && number > 0) {
        order.isSkipped = number > handles.size();
        return order.isSkipped ? nullptr : handles[number - 1];
    }
    order.hasBadHandle = true;
    if (value == "null") return nullptr;
    if (value == "unknown") return &sNoHandle;
    if (value == "stale") {
        void* const handle = host.AddPath("");
        host.RemovePath(handle);
        return handle;
    }
    order.error = "\"" + value + "\" is not a number, null, unknown or stale";
    return nullptr;
}

std::vector<void*> ListDocumentHandles(const Host& host)
{
    std::vector<void*> handles;
    for (const auto& document : host.GetDocuments()) handles.push_back(document->handle);
    return handles;
}

bool TakeHead(const std::string& word, MessagePump::RawMessage& message, RawOrder& order)
{
    if (word == "message=null") {
        order.hasMessage = false;
    } else if (word == "caller=null") {
        order.hasCaller = false;
    } else if (word == "selector=null") {
        order.hasSelector = false;
    } else if (word == "globals=null") {
        message.d.globals = nullptr;
    } else if (word == "basic=null") {
        message.d.basic = nullptr;
    } else if (word == "self=null") {
        message.d.self = nullptr;
    } else {
        return false;
    }
    return true;
}

void TakeWord(Host& host, const std::string& word, MessagePump::RawMessage& message,
              RawOrder& order)
{
    std::string value;
    if (TakeHead(word, message, order)) return;
    if (TakeValue(word, "item", value)) {
        message.words[0] = ChooseHandle(host, value, host.menuItems, order);
    } else if (TakeValue(word, "notifier", value)) {
        message.words[0] = ChooseHandle(host, value, host.notifiers, order);
    } else if (TakeValue(word, "timer", value)) {
        (void)ChooseHandle(host, value, host.timers, order);  // the message has no timer
    } else if (TakeValue(word, "format", value)) {
        (void)ChooseHandle(host, value, host.fileFormats, order);  // nor a file format
    } else if (TakeValue(word, "document", value) || TakeValue(word, "data", value)) {
        message.words[2] = ChooseHandle(host, value, ListDocumentHandles(host), order);
    } else if (TakeValue(word, "type", value)) {
        order.type = value == "null" ? std::string() : value;
    } else if (TakeValue(word, "path", value)) {
        order.hasPath = value != "null";
        order.hasBadHandle = order.hasBadHandle || !order.hasPath;
        order.path = value;
    } else {
        order.error = "unknown word \"" + word + "\"";
    }
}

bool HasNotifier(const Words& words)
{
    return std::any_of(words.begin(), words.end(),
                       [](const std::string& word) { return word.rfind("notifier=", 0) == 0; });
}

void Send(Session& session, const Words& words, MessagePump::RawMessage& message, RawOrder& order)
{
    Host& host = session.running.host;
    std::string type = order.type;
    if (!order.type.empty()) message.words[1] = type.data();
    void* path = nullptr;
    if (order.hasPath) {
        path = host.AddPath(order.path);
        message.words[0] = path;
    }
    const bool hadGlobals = message.d.globals != nullptr;
    const bool isEmpty = words[0] != "SP Interface" && message.words[0] == nullptr;
    host.violations.AllowBadHandles(order.hasBadHandle || isEmpty || message.d.self == nullptr);
    (void)session.running.application.Pump()->SendRaw(  // `expect answer` asks for the result
        order.hasCaller ? words[0].c_str() : nullptr,
        order.hasSelector ? words[1].c_str() : nullptr, order.hasMessage ? &message : nullptr,
        order.type.empty() ? nlohmann::json::object() : nlohmann::json{{"type", order.type}});
    host.violations.AllowBadHandles(false);
    // As after the shutdown that the host itself performs.
    if (hadGlobals && host.globalsWord == nullptr) host.suites.AllowUnreleased(false);
    if (path != nullptr) host.RemovePath(path);
}

std::vector<size_t> Measure(const Host& host, const std::string& what)
{
    if (what == "leaks") return {host.handles.ListLeaks().size()};
    return {host.notifiers.size(), host.fileFormats.size(), host.timers.size(),
            host.menuItems.size(), host.menuGroups.size()};
}

bool IsState(const std::string& what) { return what == "leaks" || what == "registrations"; }

LineResult MakeUnmet(const std::string& text) { return {LineOutcome::kNotAsExpected, text}; }

// The names of registered things as `describe` gives them; the first that occurs twice, or "".
template <class Object, class Describe>
std::string FindTwice(const Host& host, const std::vector<void*>& handles, Describe describe)
{
    std::set<std::string> names;
    for (void* const handle : handles) {
        const auto* const object = host.handles.Peek<Object>(handle);
        if (object == nullptr) continue;
        std::string name = describe(*object);
        if (!name.empty() && !names.insert(name).second) return name;
    }
    return {};
}

}  // namespace

LineResult RunSend(Session& session, const Words& words)
{
    Host& host = session.running.host;
    session.isAnswerSkipped = false;
    if (session.running.application.Pump() == nullptr) return MakeWrong("send: nothing is loaded");
    const SimulatedWorld* const world = session.running.world;
    const bool isForRunning = words[0] != "SP Interface" && words[0] != "SP Access";
    if (world != nullptr && world->isRefused && world->isSilentAfterRefusal && isForRunning) {
        session.isAnswerSkipped = true;
        return {};
    }
    MessagePump::RawMessage message = session.running.application.Pump()->MakeRaw();
    RawOrder order;
    for (size_t i = 2; i < words.size() && order.error.empty(); ++i) {
        TakeWord(host, words[i], message, order);
    }
    if (!order.error.empty()) return MakeWrong("send: " + order.error);
    session.isAnswerSkipped = order.isSkipped;
    if (order.isSkipped) return {};
    if (words[0] != "AI Notifier" || order.type.empty() || HasNotifier(words)) {
        Send(session, words, message, order);
        return {};
    }
    session.isAnswerSkipped = true;
    const std::vector<void*> notifiers = host.notifiers;  // a message may add some
    for (void* const handle : notifiers) {
        const auto* const notifier = host.handles.Peek<NotifierObject>(handle);
        if (notifier == nullptr || notifier->type != order.type) continue;
        MessagePump::RawMessage copy = message;
        copy.words[0] = handle;
        Send(session, words, copy, order);
        session.isAnswerSkipped = false;
    }
    return {};
}

LineResult RunRemember(Session& session, const Words& words)
{
    if (!IsState(words[0])) return MakeWrong("cannot remember \"" + words[0] + "\"");
    session.remembered[words[0]] = Measure(session.running.host, words[0]);
    return {};
}

LineResult RunAskPort(Session& session, const Words&)
{
    std::string error;
    // So that a replay asks at the same place.
    session.running.host.journal.Write("world", "panel asks", nlohmann::json::object(), nullptr);
    session.portBus = PanelBus::Open(session.running.options.frameworks, kPortResponseEvent, error);
    if (session.portBus == nullptr || !session.portBus->Send(kPortRequestEvent, error)) {
        return MakeUnmet("ask-port: " + error);
    }
    return {};
}

LineResult ExpectAnswer(Session& session, const Words& words)
{
    int expected = 0;
    if (words[0] != "failure" && !ReadStatus(words[0], expected)) {
        return MakeWrong("\"" + words[0] + "\" is not a status or \"failure\"");
    }
    const AIErr found = session.running.host.lastAnswer;
    const bool isMet = words[0] == "failure" ? found != 0 : found == expected;
    if (isMet || session.isAnswerSkipped) return {};
    return MakeUnmet("expected answer " + words[0] + ", found " + std::to_string(found));
}

LineResult ExpectAlert(Session& session, const Words& words)
{
    const std::vector<Alert>& alerts = session.running.host.alerts;
    const bool isThere = std::any_of(alerts.begin(), alerts.end(), [&](const Alert& alert) {
        return (alert.message + "\n" + alert.information).find(words[0]) != std::string::npos;
    });
    if (isThere) return {};
    return MakeUnmet("expected an alert with \"" + words[0] + "\", found " +
                     std::to_string(alerts.size()) + " alerts without it");
}

LineResult ExpectPort(Session& session, const Words& words)
{
    std::string found = "none";
    if (session.portBus != nullptr && !session.portBus->GetReceived().empty()) {
        const std::string& data = session.portBus->GetReceived().back();
        const size_t start = data.find("<number>");
        const size_t end = data.find("</number>");
        if (start != std::string::npos && end != std::string::npos) {
            found = data.substr(start + 8, end - start - 8);
        }
    }
    if (found == words[0]) return {};
    return MakeUnmet("expected port " + words[0] + ", found " + found);
}

LineResult ExpectUnchanged(Session& session, const Words& words)
{
    if (!IsState(words[0])) return MakeWrong("\"" + words[0] + "\" is never remembered");
    const std::vector<size_t> now = Measure(session.running.host, words[0]);
    if (now == session.remembered[words[0]]) return {};
    const auto print = [](const std::vector<size_t>& counts) {
        std::string text;
        for (const size_t count : counts) text += " " + std::to_string(count);
        return text;
    };
    return MakeUnmet("expected unchanged " + words[0] + print(session.remembered[words[0]]) +
                     ", found" + print(now));
}

LineResult ExpectUnique(Session& session, const Words& words)
{
    if (words[0] != "registrations") return MakeWrong("unknown word \"" + words[0] + "\"");
    const Host& host = session.running.host;
    std::string twice = FindTwice<NotifierObject>(host, host.notifiers, [](const auto& notifier) {
        return "notifier " + notifier.type + ", " + notifier.name;
    });
    if (twice.empty()) {
        twice = FindTwice<TimerObject>(host, host.timers,
                                       [](const auto& timer) { return "timer " + timer.name; });
    }
    if (twice.empty()) {
        twice = FindTwice<FileFormatObject>(host, host.fileFormats, [](const auto& format) {
            return "file format " + format.name;
        });
    }
    if (twice.empty()) {
        twice = FindTwice<MenuItemObject>(host, host.menuItems, [](const auto& item) {
            return item.key.empty() ? "" : "menu item " + item.group + ", " + item.key;
        });
    }
    if (twice.empty()) return {};
    return MakeUnmet("registered twice: " + twice);
}

}  // namespace headless
