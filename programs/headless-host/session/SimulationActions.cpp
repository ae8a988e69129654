#include "session/SimulationActions.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "PluginCoreFunctions.h"
#include "application/HostPlatformTable.h"
#include "application/MissingFontsDialog.h"
#include "base/Strings.h"
#include "documents/model/DocumentBuilder.h"
#include "model/PluginCode.h"
#include "session/MessageActions.h"
#include "simulation/SimulatedWorld.h"
#include "suites/SuiteTable.h"

namespace headless {

namespace {

// The parts of "A,B"; none of "".
std::vector<std::string> SplitAtCommas(const std::string& text)
{
    std::vector<std::string> parts;
    for (size_t at = 0; at < text.size();) {
        const size_t end = std::min(text.find(',', at), text.size());
        parts.push_back(text.substr(at, end - at));
        at = end + 1;
    }
    return parts;
}

struct KeyAndValue {
    std::string key;
    std::string value;
};

KeyAndValue SplitWord(const std::string& word)
{
    const size_t at = word.find('=');
    return at == std::string::npos ? KeyAndValue{word, ""}
                                   : KeyAndValue{word.substr(0, at), word.substr(at + 1)};
}

LineResult MakeUnknown(const std::string& action, const std::string& word)
{
    return MakeWrong(action + ": unknown or invalid \"" + word + "\"");
}

// Makes frames of so many runs each, in turn in these fonts.
void AddFrames(documents::Document& document, const std::vector<std::string>& fonts, size_t frames,
               size_t runs, bool isEmpty)
{
    documents::DocumentBuilder builder(document);
    size_t next = 0;
    for (size_t frame = 0; frame < frames; ++frame) {
        std::vector<documents::TextRun> frameRuns;
        for (size_t run = 0; run < runs && !isEmpty && !fonts.empty(); ++run) {
            frameRuns.push_back({fonts[next++ % fonts.size()], run % 7 + 1});
        }
        builder.AddFrameWithStory(std::move(frameRuns));
    }
}

documents::Kind GetKindOfPath(const std::string& path)
{
    const std::string extension = path.substr(std::min(path.rfind('.'), path.size()));
    if (extension == ".pdf") return documents::Kind::kPDF;
    return extension == ".eps" ? documents::Kind::kEPS : documents::Kind::kIllustrator;
}

bool IsCoreFunction(const std::string& name)
{
#define IS_NAME(function) name == #function ||
    return PLUGIN_CORE_FUNCTIONS(IS_NAME) false;
#undef IS_NAME
}

bool ReadBytes(const std::string& text, std::string& bytes)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    const std::string lower = base::ToLower(text);
    if (text.size() % 2 != 0) return false;
    for (size_t i = 0; i < text.size(); i += 2) {
        const auto high = kDigits.find(lower[i]);
        const auto low = kDigits.find(lower[i + 1]);
        if (high == std::string::npos || low == std::string::npos) return false;
        bytes += static_cast<char>(high * 16 + low);
    }
    return true;
}

// Any number of 64 bits, so that a size can be as large as a lie can be.
template <class Number>
bool TakeNumber(const std::string& text, std::optional<Number>& number)
{
    char* end = nullptr;
    errno = 0;
    const long long value = std::strtoll(text.c_str(), &end, 0);
    number = static_cast<Number>(errno == ERANGE ? SIZE_MAX : static_cast<size_t>(value));
    return !text.empty() && *end == '\0';
}

// A number of frames or runs, few enough for a small document.
bool TakeLength(const std::string& text, std::optional<size_t>& length)
{
    constexpr size_t kMost = 100000;
    unsigned long number = 0;
    const bool isNumber = ReadCount(text, number);
    length = number;
    return isNumber && number <= kMost;
}

bool TakeBehaviour(const KeyAndValue& word, CoreBehaviour& behaviour)
{
    constexpr size_t kFilled = size_t{1} << 21;  // more than any buffer of the interface
    const auto& [key, value] = word;
    if (key == "status") return TakeNumber(value, behaviour.status);
    if (key == "size") return TakeNumber(value, behaviour.size);
    if (key == "number") return TakeNumber(value, behaviour.number);
    if (key == "text") {
        behaviour.text = value;
    } else if (key == "hex") {
        return ReadBytes(value, behaviour.text.emplace());
    } else if (key == "fill" && value.size() == 1) {
        behaviour.text = std::string(kFilled, value[0]);
        behaviour.isRaw = true;
    } else if (key == "flag" && (value == "true" || value == "false")) {
        behaviour.flag = value == "true";
    } else if (key == "rebuild") {
        behaviour.rebuildsMenu = true;
    } else if (key == "throw") {
        Fault fault;
        if (!ReadFault("throw:" + value, fault)) return false;
        behaviour.exceptionType = fault.exceptionType;
    } else if (key == "times") {
        std::optional<size_t> times;
        if (!TakeNumber(value, times) || *times == 0) return false;
        behaviour.times = *times;
    } else {
        return false;
    }
    return true;
}

LineResult OrderFault(CallFaults& faults, const Words& words, const char* action)
{
    unsigned long number = 0;
    Fault fault;
    if (!ReadCount(words[0], number) || number == 0) return MakeUnknown(action, words[0]);
    if (!ReadFault(words[1], fault)) return MakeUnknown(action, words[1]);
    faults.FailCall(number, fault);
    return {};
}

}  // namespace

LineResult RunFailCall(Session& session, const Words& words)
{
    return OrderFault(session.running.host.suiteFaults, words, "fail-call");
}

LineResult RunFailCore(Session& session, const Words& words)
{
    return OrderFault(session.running.host.coreFaults, words, "fail-core");
}

LineResult RunFailAllocation(Session&, const Words& words)
{
    unsigned long number = 0;
    if (!ReadCount(words[0], number) || number == 0) {
        return MakeUnknown("fail-allocation", words[0]);
    }
    plugin_code::FailAllocation(number);
    return {};
}

LineResult RunDuring(Session& session, const Words& words)
{
    std::string line;
    for (size_t i = 1; i < words.size(); ++i) {
        line += (line.empty() ? "" : " ") + QuoteSessionWord(words[i]);
    }
    session.running.host.duringCalls.emplace(words[0], [&session, line] {
        const LineResult result = session.runLine(session, line);
        // A line that isn't possible in the middle of a message does nothing.
        if (result.outcome == LineOutcome::kNotAsExpected ||
            result.outcome == LineOutcome::kWrong) {
            session.nestedFailures.push_back(line + ": " + result.text);
        }
    });
    return {};
}

LineResult RunClock(Session& session, const Words& words)
{
    constexpr unsigned long kMost = 1UL << 40;  // sums of it stay within 64 bits
    const std::string sign = words[0].substr(0, 1);
    unsigned long seconds = 0;
    const bool isNumber = (sign == "+" || sign == "-") && ReadCount(words[0].substr(1), seconds);
    if (!isNumber || seconds > kMost) return MakeUnknown("clock", words[0]);
    const long change = static_cast<long>(seconds);
    plugin_code::SetClockOffset(plugin_code::GetClockOffset() + (sign == "+" ? change : -change));
    session.running.host.journal.Write("world", "clock",
                                       {{"offset", plugin_code::GetClockOffset()}}, nullptr);
    return {};
}

LineResult RunSimulate(Session&, const Words&) { return {}; }

LineResult RunActive(Session& session, const Words& words)
{
    session.running.world->SetActive(words);
    return {};
}

LineResult RunDocument(Session& session, const Words& words)
{
    documents::OpenResult result;
    result.ok = true;
    documents::Document& document = result.document;
    std::vector<std::string> fonts = {SimulatedWorld::kDefaultFont};
    std::vector<std::string> listed;
    std::optional<size_t> frames = 1;
    std::optional<size_t> runs;
    bool isEmpty = false;
    for (size_t i = 1; i < words.size(); ++i) {
        const auto [key, value] = SplitWord(words[i]);
        bool isKnown = true;
        if (key == "fonts") {
            fonts = SplitAtCommas(value);
        } else if (key == "frames") {
            isKnown = TakeLength(value, frames);
        } else if (key == "runs") {
            isKnown = TakeLength(value, runs);
        } else if (key == "placed") {
            document.linkedFiles = SplitAtCommas(value);
        } else if (key == "listed") {
            listed = SplitAtCommas(value);
        } else if (key == "unreadable") {
            result = {false, {}, "damaged"};
        } else if (key == "empty") {
            isEmpty = true;
        } else {
            isKnown = false;
        }
        if (!isKnown) return MakeUnknown("document", words[i]);
    }
    for (std::string& file : document.linkedFiles) file = session.running.world->GetPath(file);
    if (result.ok) {
        AddFrames(document, fonts, *frames, runs.value_or(fonts.size()), isEmpty);
        if (!listed.empty()) documents::DocumentBuilder(document).SetFontList(listed);
        document.kind = GetKindOfPath(words[0]);
        document.isTemplate = base::EndsWith(words[0], ".ait");
        document.reader = "simulated";
    }
    const std::string error = session.running.world->SetDocument(words[0], std::move(result));
    return error.empty() ? LineResult() : MakeWrong("document: " + error);
}

LineResult RunVanish(Session& session, const Words& words)
{
    const std::string problem = session.running.world->CheckPath(words[0]);
    if (!problem.empty()) return MakeWrong("vanish: " + problem);
    const std::string path = session.running.world->GetPath(words[0]);
    if (unlink(path.c_str()) == 0) return {};
    return MakeImpossible("vanish: " + words[0] + ": " + std::strerror(errno));
}

LineResult RunLanguage(Session& session, const Words& words)
{
    const bool isKnown =
        std::any_of(std::begin(kHostLanguages), std::end(kHostLanguages),
                    [&](const HostLanguage& each) { return words[0] == each.tag; });
    if (!isKnown) return MakeUnknown("language", words[0]);
    session.running.world->language = words[0];
    session.running.application.SetLanguage(words[0]);
    return {};
}

LineResult RunLackSuite(Session& session, const Words& words)
{
    if (FindSuiteRow(words[0].c_str()) == nullptr) return MakeUnknown("lack-suite", words[0]);
    session.running.world->lackingSuites.insert(words[0]);
    session.running.host.lackingSuites.insert(words[0]);
    return {};
}

LineResult RunSuiteVersion(Session& session, const Words& words)
{
    int version = 0;
    if (FindSuiteRow(words[0].c_str()) == nullptr) return MakeUnknown("suite-version", words[0]);
    if (!ReadStatus(words[1], version)) return MakeUnknown("suite-version", words[1]);
    session.running.world->suiteVersions[words[0]] = version;
    session.running.host.suiteVersions[words[0]] = version;
    return {};
}

LineResult RunLackFunction(Session& session, const Words& words)
{
    if (session.running.world->LackFunction(words[0])) return {};
    return MakeUnknown("lack-function", words[0]);
}

LineResult RunLackCore(Session& session, const Words&)
{
    return session.running.world->LackCore() ? LineResult() : MakeWrong("lack-core: it is gone");
}

LineResult RunLackBus(Session&, const Words&)
{
    SetPrivateFrameworks("");
    return {};
}

LineResult RunCore(Session& session, const Words& words)
{
    if (!IsCoreFunction(words[0])) return MakeUnknown("core", words[0]);
    CoreBehaviour behaviour;
    for (size_t i = 1; i < words.size(); ++i) {
        if (!TakeBehaviour(SplitWord(words[i]), behaviour)) return MakeUnknown("core", words[i]);
    }
    session.running.world->core.Set(words[0], std::move(behaviour));
    return {};
}

LineResult RunAllow(Session& session, const Words& words)
{
    if (words[0] != "refusal" && words[0] != "silence") return MakeUnknown("allow", words[0]);
    session.running.world->mayRefuse = true;
    session.running.world->isSilentAfterRefusal = words[0] == "silence";
    return {};
}

LineResult RunCount(Session& session, const Words& words)
{
    if (!words.empty() && words[0] != "end") return MakeUnknown("count", words[0]);
    if (words.empty()) {
        session.running.world->CountFrom(session.running.host);
    } else {
        session.running.world->CountUpTo(session.running.host);
    }
    return {};
}

LineResult RunStart(Session&, const Words&) { return {}; }

LineResult RunRestart(Session&, const Words&) { return {LineOutcome::kRestart, {}}; }

LineResult ExpectRefused(Session& session, const Words& words)
{
    session.running.world->mayRefuse = true;
    if (!session.running.world->isRefused) {
        return {LineOutcome::kNotAsExpected, "expected a refusal to start, found none"};
    }
    return words.empty() ? LineResult() : ExpectAlert(session, words);
}

LineResult ExpectCore(Session& session, const Words& words)
{
    unsigned long count = 0;
    if (!IsCoreFunction(words[0])) return MakeUnknown("expect core", words[0]);
    if (!ReadCount(words[1], count)) return MakeUnknown("expect core", words[1]);
    const size_t found = session.running.world->core.GetCount(words[0]);
    if (found == count) return {};
    return {LineOutcome::kNotAsExpected,
            "expected " + words[1] + " calls of " + words[0] + ", found " + std::to_string(found)};
}

}  // namespace headless
