#include "simulation/SimulatedCore.h"

#include "model/Host.h"
#include "model/PluginCode.h"

namespace headless {

namespace {

constexpr int kPort = 4711;
constexpr size_t kNestedAnswers = 16;

constexpr char kMenus[] =
    R"({"id":"root","label":"root","title":"","checked":false,"enabled":true,"child":[)"
    R"({"id":"activate","label":"Activate Fonts","title":"Activate Fonts","checked":false,)"
    R"("enabled":true,"child":[]},)"
    R"({"id":"deactivate","label":"Deactivate Fonts","title":"Deactivate Fonts","checked":false,)"
    R"("enabled":true,"child":[]},)"
    R"({"id":"select","label":"Select Library","title":"Select Library","checked":false,)"
    R"("enabled":true,"child":[)"
    R"({"id":"library:1","label":"One","title":"One","checked":true,"enabled":true,"child":[]},)"
    R"({"id":"library:2","label":"Two","title":"Two","checked":false,"enabled":true,"child":[]}]},)"
    R"({"id":"line","label":"line","title":"","checked":false,"enabled":true,"child":[]},)"
    R"({"id":"about","label":"About","title":"About","checked":false,"enabled":true,"child":[]}]})";

SimulatedCore* sCurrentCore = nullptr;

// What a sound PluginCore writes to its buffer: nothing has to be resolved, there are no settings.
std::optional<std::string> GetSoundText(const std::string& function,
                                        const nlohmann::json& arguments)
{
    if (function == "GetMenus") return kMenus;
    if (function == "GetSettings") return "{}";
    if (function == "HandleCreateNewDocument") return "id:new";
    if (function == "HandleOpenExistingDocument") return "";
    if (function != "GetIDForDocument") return std::nullopt;
    const std::string path = arguments.value("documentPath", "");
    return path.empty() ? "" : "id:" + path;
}

}  // namespace

SimulatedCore::SimulatedCore() { sCurrentCore = this; }

SimulatedCore::~SimulatedCore() { sCurrentCore = nullptr; }

SimulatedCore* SimulatedCore::GetCurrent() { return sCurrentCore; }

void SimulatedCore::Set(const std::string& function, CoreBehaviour behaviour)
{
    mBehaviours[function] = std::move(behaviour);
}

size_t SimulatedCore::GetCount(const std::string& function) const
{
    const auto found = mCounts.find(function);
    return found == mCounts.end() ? 0 : found->second;
}

CoreBehaviour SimulatedCore::Take(const std::string& function)
{
    const auto found = mBehaviours.find(function);
    if (found == mBehaviours.end()) return {};
    CoreBehaviour behaviour = found->second;
    if (found->second.times != SIZE_MAX && --found->second.times == 0) mBehaviours.erase(found);
    return behaviour;
}

void SimulatedCore::Answer(const std::string& function, const nlohmann::json& arguments,
                           HostAnswer& answer)
{
    ++mCounts[function];
    Host* const host = Host::GetCurrent();
    if (host != nullptr) host->BeginCall(function.c_str());
    if (mAnswerer) {
        mAnswerer(function, arguments, answer);
        return;
    }
    CoreBehaviour behaviour = Take(function);
    if (const Fault* const fault =
            host == nullptr ? nullptr : host->coreFaults.CountCall(function.c_str())) {
        behaviour = {};
        behaviour.status = static_cast<unsigned>(fault->status);
        behaviour.exceptionType = fault->exceptionType;
    }
    if (!behaviour.exceptionType.empty()) {
        if (host != nullptr) host->journal.Write("core", function, arguments, "throws");
        ThrowFault(behaviour.exceptionType);
    }
    answer.status = behaviour.status.value_or(0);
    std::optional<std::string> text = std::move(behaviour.text);
    if (!text && answer.status == 0) text = GetSoundText(function, arguments);
    answer.hasText = text.has_value();
    mTexts.push_back(text.value_or(""));
    if (mTexts.size() > kNestedAnswers) mTexts.pop_front();
    answer.text = mTexts.back().c_str();
    answer.textSize = mTexts.back().size();
    answer.isRaw = behaviour.isRaw;
    answer.hasSize = behaviour.size.has_value();
    answer.size = behaviour.size.value_or(0);
    const bool isPort = function == "GetSocketPort" && answer.status == 0;
    answer.hasNumber = behaviour.number.has_value() || isPort;
    answer.number = behaviour.number.value_or(kPort);
    answer.hasFlag = behaviour.flag.has_value() || answer.status == 0;
    answer.flag = behaviour.flag.value_or(true);
    answer.rebuildsMenu = behaviour.rebuildsMenu;
    if (answer.rebuildsMenu && host != nullptr) {
        // As the real PluginCore does: a replay has to know when the callback was called.
        host->journal.Write("core", "rebuild menu", nlohmann::json::object(), nullptr);
    }
}

}  // namespace headless

extern "C" void HeadlessHostAnswerCore(const char* function, const char* argsJson,
                                       HostAnswer* answer)
{
    headless::SimulatedCore* const core = headless::SimulatedCore::GetCurrent();
    if (core == nullptr) return;
    const headless::plugin_code::Scope scope(false);
    core->Answer(function, nlohmann::json::parse(argsJson), *answer);
}
